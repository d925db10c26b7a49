#include "QZParserSQL/platform/Console.h"

#include <cstdio>
#include <mutex>
#include <string>

#include "QZParserSQL/platform/CCriticalSection.h"

namespace {

void WriteToFile(void* file, std::string_view utf8Line) {
    const std::string line = std::string(utf8Line) + '\n';
    static_cast<void>(std::fwrite(line.data(), 1, line.size(), static_cast<std::FILE*>(file)));
}

class LineStream {
 public:
    explicit LineStream(std::FILE* file) : m_File(file), m_Context(file) {}

    void SetSink(QZConsoleSink sink, void* context) {
        const std::lock_guard lock(m_Lock);
        m_Sink = sink == nullptr ? WriteToFile : sink;
        m_Context = sink == nullptr ? m_File : context;
    }

    // Holds the lock throughout, so that a sink which was replaced has seen its last line.
    void WriteLine(std::string_view utf8Line) {
        const std::lock_guard lock(m_Lock);
        m_Sink(m_Context, utf8Line);
    }

 private:
    CCriticalSection m_Lock;
    std::FILE* m_File;
    QZConsoleSink m_Sink = WriteToFile;
    void* m_Context;
};

LineStream& Output() {
    static LineStream stream(stdout);
    return stream;
}

LineStream& Errors() {
    static LineStream stream(stderr);
    return stream;
}

}  // namespace

void QZSetConsoleSink(QZConsoleSink sink, void* context) { Output().SetSink(sink, context); }
void QZSetErrorSink(QZConsoleSink sink, void* context) { Errors().SetSink(sink, context); }
void QZConsoleWriteLine(const CString& line) { Output().WriteLine(line.ToUtf8()); }
void QZErrorWriteLine(std::string_view utf8) { Errors().WriteLine(utf8); }
