// Work for a tool that counts instructions. Each function makes everything ready for so many lines
// of its kind, and returns the work itself, which returns true if all went well and is called once.
// Names in pairs: the program's work, and the bare reference for it.
#ifndef BENCHMARKS_COUNTED_WORK_H_
#define BENCHMARKS_COUNTED_WORK_H_

#include <functional>

namespace benchmarks {

using Work = std::function<bool()>;

// Lines of an ACL backup file. Restored by the program's engine; and the platform calls that they
// take, with arguments that are ready, after the file is read in blocks.
Work RestoreLines(int lines);
Work RestoreLinesBare(int lines);

// Lines of an ACL backup file. Read by fgets and split by the program's parser; and read by fgets.
Work SplitLines(int lines);
Work ReadLines(int lines);

// Lines of a log. By the program's logger without an observer; and formatted by snprintf with a
// time that is ready, written to a stream like the logger's and flushed.
Work LogLines(int lines);
Work LogLinesBare(int lines);

// Lines of "detail disk". Parsed by the program; and searched by memchr.
Work ParseDetail(int lines);
Work SearchDetail(int lines);

}  // namespace benchmarks

#endif  // BENCHMARKS_COUNTED_WORK_H_
