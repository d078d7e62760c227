#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "simulator/model/processes/handles.h"

namespace simulator {
namespace {

class Lamp : public Object {
 public:
  std::string Kind() const override { return "lamp"; }
};

class Door : public Object {
 public:
  std::string Kind() const override { return "door"; }
};

TEST(Handles, FindObjectsOfTheirKindOnly) {
  Handles handles;
  const auto lamp = std::make_shared<Lamp>();
  const HANDLE handle = handles.Insert(lamp, false);
  EXPECT_EQ(handles.Find<Lamp>(handle), lamp);
  EXPECT_EQ(handles.Find<Door>(handle), nullptr);
  EXPECT_EQ(handles.Find<Lamp>(nullptr), nullptr);
}

TEST(Handles, CloseOnce) {
  Handles handles;
  const HANDLE handle = handles.Insert(std::make_shared<Lamp>(), false);
  EXPECT_TRUE(handles.Close(handle));
  EXPECT_FALSE(handles.Close(handle));
}

TEST(Handles, NeverUseAValueTwice) {
  Handles handles;
  const HANDLE first = handles.Insert(std::make_shared<Lamp>(), false);
  handles.Close(first);
  EXPECT_NE(handles.Insert(std::make_shared<Lamp>(), false), first);
}

TEST(Handles, TellTheKindsThatAreOpenInOrder) {
  Handles handles;
  handles.Insert(std::make_shared<Lamp>(), false);
  handles.Insert(std::make_shared<Door>(), true);
  EXPECT_EQ(handles.OpenKinds(), (std::vector<std::string>{"lamp", "door"}));
  ASSERT_EQ(handles.Inheritable().size(), 1u);
  EXPECT_EQ(handles.Inheritable()[0]->Kind(), "door");
}

TEST(Handles, LetGoOfAnObjectOnlyWhenTheLastOneCloses) {
  Handles handles;
  auto lamp = std::make_shared<Lamp>();
  const std::weak_ptr<Lamp> watched = lamp;
  const HANDLE first = handles.Insert(lamp, false);
  const HANDLE second = handles.Insert(std::move(lamp), false);
  handles.Close(first);
  EXPECT_FALSE(watched.expired());
  handles.Close(second);
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace simulator
