#include "platform/sequential_output.h"

#include "platform/windows/file_handles.h"

namespace tovera {
namespace {

struct WindowsOutputFile : OutputFile {
    explicit WindowsOutputFile(HANDLE opened) : file(opened) {}
    void printLine(std::string_view line) override {
        const auto bytes = std::string(line) + "\r\n";
        const auto size = static_cast<DWORD>(bytes.size());
        DWORD written = 0;
        if (!WriteFile(file.get(), bytes.data(), size, &written, nullptr)) raise(fileErrorOf(GetLastError()));
    }
    void close() override {
        if (file && !CloseHandle(file.release())) raise(fileErrorOf(GetLastError()));
    }
    OpenedFile file;
};

class WindowsSequentialOutput : public SequentialOutput {
    std::unique_ptr<OutputFile> openForOutput(const Bstr& path) override {
        auto file = std::make_unique<WindowsOutputFile>(CreateFileW(pathOf(path).c_str(), GENERIC_WRITE,
                                                                    FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file->file) raise(fileErrorOf(GetLastError()));
        return file;
    }
};

}  // namespace

SequentialOutput& homeSequentialOutput() {
    static WindowsSequentialOutput port;
    return port;
}

}  // namespace tovera
