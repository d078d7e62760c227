// A value in a scenario's JSON together with its position, which error messages name.
#ifndef REHEARSAL_DESCRIPTION_SCENARIO_JSON_H_
#define REHEARSAL_DESCRIPTION_SCENARIO_JSON_H_

#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace simulator {

// Parses a whole file. Throws ScenarioError, also for an object that has a key twice.
nlohmann::json ParseJsonFile(const std::filesystem::path& file);

// Refers to the document and to the file's name; both must outlive this object. Every member
// function throws ScenarioError if the value is not of the requested type.
class JsonPlace {
 public:
  JsonPlace(const std::filesystem::path& file, const nlohmann::json& value,
            std::string pointer = "")
      : file_(&file), value_(&value), pointer_(std::move(pointer)) {}

  // Returns "FILE: /disks/0/size".
  std::string Where() const;
  // Throws ScenarioError with the message "FILE: /disks/0/size: expected WHAT".
  [[noreturn]] void Fail(std::string_view expected) const;

  // For an object.
  void AllowKeys(const std::vector<std::string>& keys) const;
  std::optional<JsonPlace> Find(const std::string& key) const;
  JsonPlace At(const std::string& key) const;

  std::vector<std::pair<std::string, JsonPlace>> Members() const;  // of an object, by their keys

  std::vector<JsonPlace> Elements() const;
  std::string Text() const;
  bool Truth() const;
  int64_t Number(int64_t low, int64_t high) const;

  // For a string of a certain form.
  std::string Line() const;  // one line, not empty
  uint64_t Size() const;     // "127 GB", in bytes
  char Letter() const;       // "E" or "e", in upper case

 private:
  const std::filesystem::path* file_;
  const nlohmann::json* value_;
  std::string pointer_;
};

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_SCENARIO_JSON_H_
