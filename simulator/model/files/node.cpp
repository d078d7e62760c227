#include "simulator/model/files/node.h"

#include <utility>

#include "simulator/model/common/path_name.h"

namespace simulator {

bool ByName::operator()(const std::shared_ptr<Node>& a, const std::shared_ptr<Node>& b) const {
  return IsNameBefore(a->name, b->name);
}

bool ByName::operator()(const std::shared_ptr<Node>& a, std::string_view b) const {
  return IsNameBefore(a->name, b);
}

bool ByName::operator()(std::string_view a, const std::shared_ptr<Node>& b) const {
  return IsNameBefore(a, b->name);
}

const NodeContents& Node::contents() const {
  static const NodeContents none;
  return contents_ ? *contents_ : none;
}

NodeContents& Node::OwnContents() {
  if (!contents_) contents_ = std::make_unique<NodeContents>();
  return *contents_;
}

std::shared_ptr<Node> Node::Child(std::string_view child) const {
  const auto& children = contents().children;
  const auto found = children.find(child);
  return found == children.end() ? nullptr : *found;
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
  OwnContents().children.insert(node);
  return node;
}

void Node::RemoveChild(std::string_view child) {
  auto& children = OwnContents().children;
  children.erase(children.find(child));
}

void Node::MakeReparsePoint(std::string buffer) {
  OwnContents().reparse_data = std::move(buffer);
  attributes |= FILE_ATTRIBUTE_REPARSE_POINT;
}

}  // namespace simulator
