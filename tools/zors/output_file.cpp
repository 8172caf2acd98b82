#include "output_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "failure.hpp"

namespace tool {

OutputFile::OutputFile(const std::string& path) : path_(path) {
  if (isStandardOutput()) {
    descriptor_ = STDOUT_FILENO;
    return;
  }
  struct stat there {};
  if (stat(path.c_str(), &there) == 0) {
    if (S_ISDIR(there.st_mode)) fail(EISDIR);
    if (!S_ISREG(there.st_mode)) {  // /dev/null, a named pipe
      descriptor_ = open(path.c_str(), O_WRONLY | O_CLOEXEC);
      if (descriptor_ < 0) fail(errno);
      return;
    }
    if (access(path.c_str(), W_OK) != 0) fail(errno);
    if (char* real = realpath(path.c_str(), nullptr)) {  // the file behind a link, not the link, is replaced
      path_ = real;
      std::free(real);
    }
  }
  const std::size_t name = path_.rfind('/') + 1;  // npos + 1 is 0
  temporary_ = path_.substr(0, name) + "." + path_.substr(name).substr(0, 200) + ".XXXXXX";
  descriptor_ = mkostemp(temporary_.data(), O_CLOEXEC);
  if (descriptor_ < 0) {
    temporary_.clear();
    fail(errno);
  }
  const mode_t mask = umask(0);
  umask(mask);
  fchmod(descriptor_, there.st_mode ? there.st_mode & 07777 : 0666 & ~mask);
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0 && !isStandardOutput()) close(descriptor_);
  if (!temporary_.empty()) unlink(temporary_.c_str());
}

void OutputFile::write(const void* data, std::size_t size) {
  for (const char* p = static_cast<const char*>(data); size > 0;) {
    const ssize_t written = ::write(descriptor_, p, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) fail(errno);
    p += written, size -= std::size_t(written);
  }
}

void OutputFile::finish() {
  if (isStandardOutput()) return;
  const int closed = close(descriptor_);
  descriptor_ = -1;
  if (closed != 0) fail(errno);
  if (temporary_.empty()) return;
  if (std::rename(temporary_.c_str(), path_.c_str()) != 0) fail(errno);
  temporary_.clear();
}

void OutputFile::fail(int error) const {
  const std::string name = isStandardOutput() ? "standard output" : path_;
  throw Failure(Exit::output, name + ": " + (error ? std::strerror(error) : "cannot be written"));
}

}  // namespace tool
