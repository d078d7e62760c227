#include "simulator/model/files/hold.h"

#include <utility>

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
  Sharing& sharing = node_->sharing;
  sharing.holders += by;
  if ((access_ & kReading) != 0) sharing.readers += by;
  if ((access_ & kWriting) != 0) sharing.writers += by;
  if ((access_ & kDeleting) != 0) sharing.deleters += by;
  if ((share_ & FILE_SHARE_READ) != 0) sharing.share_reading += by;
  if ((share_ & FILE_SHARE_WRITE) != 0) sharing.share_writing += by;
  if ((share_ & FILE_SHARE_DELETE) != 0) sharing.share_deleting += by;
}

}  // namespace simulator
