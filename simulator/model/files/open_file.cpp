#include "simulator/model/files/open_file.h"

#include <algorithm>
#include <utility>

#include "simulator/model/files/volume.h"

namespace simulator {
namespace {

constexpr ACCESS_MASK kReading = FILE_READ_DATA | FILE_EXECUTE;
constexpr ACCESS_MASK kWriting = FILE_WRITE_DATA | FILE_APPEND_DATA;
constexpr ACCESS_MASK kDeleting = DELETE;

bool IsCounted(ACCESS_MASK access) { return (access & (kReading | kWriting | kDeleting)) != 0; }

}  // namespace

bool Hold::IsPossible(const Sharing& sharing, ACCESS_MASK access, DWORD share) {
  if (!IsCounted(access)) return true;
  const auto all_share = [&sharing](int sharers) { return sharers == sharing.holders; };
  return ((access & kReading) == 0 || all_share(sharing.share_reading)) &&
         ((access & kWriting) == 0 || all_share(sharing.share_writing)) &&
         ((access & kDeleting) == 0 || all_share(sharing.share_deleting)) &&
         ((share & FILE_SHARE_READ) != 0 || sharing.readers == 0) &&
         ((share & FILE_SHARE_WRITE) != 0 || sharing.writers == 0) &&
         ((share & FILE_SHARE_DELETE) != 0 || sharing.deleters == 0);
}

Hold::Hold(std::shared_ptr<FileSystem::Shared> shared, std::shared_ptr<Node> node,
           ACCESS_MASK access, DWORD share)
    : shared_(std::move(shared)), node_(std::move(node)), access_(access), share_(share) {
  Count(1);
}

Hold::~Hold() {
  const std::lock_guard lock(shared_->mutex);
  Count(-1);
}

void Hold::Count(int by) {
  if (!IsCounted(access_)) return;
  Sharing& sharing = node_->OwnContents().sharing;
  sharing.holders += by;
  if ((access_ & kReading) != 0) sharing.readers += by;
  if ((access_ & kWriting) != 0) sharing.writers += by;
  if ((access_ & kDeleting) != 0) sharing.deleters += by;
  if ((share_ & FILE_SHARE_READ) != 0) sharing.share_reading += by;
  if ((share_ & FILE_SHARE_WRITE) != 0) sharing.share_writing += by;
  if ((share_ & FILE_SHARE_DELETE) != 0) sharing.share_deleting += by;
}

OpenFile::OpenFile(std::shared_ptr<FileSystem::Shared> shared, std::shared_ptr<Volume> volume,
                   std::unique_ptr<Hold> hold, std::string path, const OpenMode& mode)
    : shared_(std::move(shared)),
      volume_(std::move(volume)),
      hold_(std::move(hold)),
      path_(std::move(path)),
      mode_(mode) {}

OpenFile::~OpenFile() = default;

DWORD OpenFile::Read(char* buffer, size_t size, size_t* read) {
  *read = 0;
  if (!mode_.read) return ERROR_ACCESS_DENIED;
  const std::lock_guard lock(shared_->mutex);
  const NodeContents& contents = hold_->Held().contents();
  if (contents.make_bytes) {
    *read = contents.make_bytes(position_, buffer, size);
  } else if (position_ < contents.bytes.size()) {
    *read = contents.bytes.copy(buffer, size, position_);
  }
  position_ += *read;
  return ERROR_SUCCESS;
}

DWORD OpenFile::Write(std::string_view bytes, size_t* written) {
  *written = 0;
  if (!mode_.write) return ERROR_ACCESS_DENIED;
  if (bytes.empty()) return ERROR_SUCCESS;
  const std::lock_guard lock(shared_->mutex);
  std::string& stored = hold_->Held().OwnContents().bytes;
  if (mode_.append) position_ = stored.size();

  const size_t gap = position_ > stored.size() ? position_ - stored.size() : 0;
  if (gap > volume_->free) return ERROR_DISK_FULL;
  const size_t room = static_cast<size_t>(std::min<uint64_t>(bytes.size(), volume_->free - gap));
  const size_t overwritten = position_ < stored.size() ? stored.size() - position_ : 0;
  const size_t fitting = std::min(bytes.size(), overwritten + room);

  const size_t old_size = stored.size();
  stored.append(gap, '\0');
  stored.replace(position_, std::min(fitting, overwritten), bytes.substr(0, fitting));
  volume_->free -= stored.size() - old_size;
  position_ += fitting;
  *written = fitting;
  if (shared_->watcher) shared_->watcher(path_, bytes.substr(0, fitting));
  return fitting == bytes.size() ? ERROR_SUCCESS : ERROR_DISK_FULL;
}

void OpenFile::StepBack() {
  const std::lock_guard lock(shared_->mutex);
  if (position_ > 0) --position_;
}

void OpenFile::DropLast(char byte) {
  const std::lock_guard lock(shared_->mutex);
  std::string& stored = hold_->Held().OwnContents().bytes;
  if (stored.empty() || stored.back() != byte) return;
  stored.pop_back();
  ++volume_->free;
}

}  // namespace simulator
