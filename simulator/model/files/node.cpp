#include "simulator/model/files/node.h"

#include <utility>

#include "simulator/model/common/path_name.h"

namespace simulator {

std::shared_ptr<Node> Node::Child(std::string_view child) const {
  const auto found = children.find(NameKey(child));
  return found == children.end() ? nullptr : found->second;
}

const Node* Node::Find(std::string_view path) const {
  const Node* node = this;
  for (const std::string& step : NamesBelowRoot(path)) {
    // The folder keeps the child alive.
    node = node->Child(step).get();
    if (node == nullptr) break;
  }
  return node;
}

std::shared_ptr<Node> Node::AddChild(std::string_view child, DWORD child_attributes) {
  auto node = std::make_shared<Node>();
  node->name = child;
  node->attributes = child_attributes;
  children.emplace(NameKey(child), node);
  return node;
}

void Node::MakeReparsePoint(std::string buffer) {
  reparse_data = std::move(buffer);
  attributes |= FILE_ATTRIBUTE_REPARSE_POINT;
}

}  // namespace simulator
