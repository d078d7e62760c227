#include "simulator/model/node.h"

#include "simulator/model/path_name.h"

namespace simulator {

std::shared_ptr<Node> Node::Child(std::string_view child) const {
  const auto found = children.find(NameKey(child));
  return found == children.end() ? nullptr : found->second;
}

std::shared_ptr<Node> Node::AddChild(std::string_view child, DWORD child_attributes) {
  auto node = std::make_shared<Node>();
  node->name = child;
  node->attributes = child_attributes;
  children.emplace(NameKey(child), node);
  return node;
}

}  // namespace simulator
