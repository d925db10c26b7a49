// Reading files and pipes as bytes.
#pragma once

#include <string>
#include <string_view>

namespace qzsql {

/// An open file, or standard input for the name "-". Failures throw std::system_error with the system's reason.
class File {
 public:
    explicit File(const std::string& name);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// Appends what is there, waiting for the first byte only; false at the end.
    bool ReadSome(std::string& bytes);
    std::string ReadAll();

 private:
    int descriptor_;
};

/// The lines of a file, each as soon as it is complete.
class LineReader {
 public:
    explicit LineReader(File& file) : file_(file) {}

    /// Without the line end; the last line needs none. False behind the last line.
    bool Next(std::string& line);

 private:
    bool Fill();

    File& file_;
    std::string bytes_;
    std::size_t begin_ = 0;
};

}  // namespace qzsql
