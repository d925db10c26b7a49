#include "host/file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace qzsql {

namespace {

constexpr std::size_t kChunk = 65'536;

[[noreturn]] void ThrowLastError() { throw std::system_error(errno, std::generic_category()); }

int Open(const std::string& name) {
    const int descriptor = open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) ThrowLastError();
    return descriptor;
}

ssize_t Read(int descriptor, char* to, std::size_t size) {
    ssize_t count = 0;
    do {
        count = read(descriptor, to, size);
    } while (count < 0 && errno == EINTR);
    return count;
}

}  // namespace

File::File(const std::string& name) : descriptor_(name == "-" ? STDIN_FILENO : Open(name)) {}

File::~File() {
    if (descriptor_ != STDIN_FILENO) close(descriptor_);
}

bool File::ReadSome(std::string& bytes) {
    const auto before = bytes.size();
    bytes.resize(before + kChunk);
    const auto count = Read(descriptor_, &bytes[before], kChunk);
    if (count < 0) ThrowLastError();
    bytes.resize(before + static_cast<std::size_t>(count));
    return count > 0;
}

std::string File::ReadAll() {
    std::string bytes;
    while (ReadSome(bytes)) {
    }
    return bytes;
}

// Only new bytes are searched, so that a line of any length costs its length once.
bool LineReader::Next(std::string& line) {
    auto end = bytes_.find('\n', begin_);
    while (end == std::string::npos) {
        const auto searched = bytes_.size() - begin_;
        if (!Fill()) break;
        end = bytes_.find('\n', begin_ + searched);
    }
    if (end == std::string::npos && begin_ == bytes_.size()) return false;
    line.assign(bytes_, begin_, end - begin_);
    begin_ = end == std::string::npos ? bytes_.size() : end + 1;
    return true;
}

bool LineReader::Fill() {
    bytes_.erase(0, begin_);
    begin_ = 0;
    return file_.ReadSome(bytes_);
}

}  // namespace qzsql
