// A file under its final name only when it is whole.
#pragma once

#include <string>

namespace tool {

/// Writes go to a new file beside the final one; finish() renames it. Without finish() it is removed.
/// "-" is the standard output; devices and pipes are written as they are.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  int descriptor() const noexcept { return descriptor_; }
  bool isStandardOutput() const noexcept { return path_ == "-"; }
  void write(const void* data, std::size_t size);
  void finish();
  /// Throws the failure of a write to this file, with errno's text where there is one.
  [[noreturn]] void fail(int error) const;

 private:
  std::string path_, temporary_;
  int descriptor_ = -1;
};

}  // namespace tool
