#include "platform/user_files.h"

#include "frame/last_error.h"
#include "frame/utf8.h"
#include "platform/windows/file_handles.h"
#include "platform/windows/wide_text.h"

namespace tovera {
namespace {

[[noreturn]] void raiseLast() {
    const DWORD status = GetLastError();
    lastError() = static_cast<I4>(status);
    raise(fileErrorOf(status));
}

OpenedFile opened(const std::wstring& path) {
    OpenedFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) raiseLast();
    return file;
}

/// A file beside another that takes its place, and is gone where it couldn't.
class Successor {
  public:
    explicit Successor(const std::wstring& path)
        : path_(path + L'.' + std::to_wstring(GetCurrentProcessId()) + L".new") {}
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;
    ~Successor() {
        if (written_) DeleteFileW(path_.c_str());
    }

    void write(std::string_view bytes) {
        const OpenedFile file(CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file) raiseLast();
        written_ = true;
        DWORD count = 0;
        const auto size = static_cast<DWORD>(bytes.size());
        if (!WriteFile(file.get(), bytes.data(), size, &count, nullptr) || count != size ||
            !FlushFileBuffers(file.get()))
            raiseLast();
    }
    void replace(const std::wstring& path) {
        if (!ReplaceFileW(path.c_str(), path_.c_str(), nullptr, 0, nullptr, nullptr)) raiseLast();
        written_ = false;
    }

  private:
    std::wstring path_;
    bool written_ = false;
};

}  // namespace

std::string ownPathOf(std::u16string_view path) {
    const auto file = opened(pathOf(Bstr(path)));
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const auto room = static_cast<DWORD>(name.size());
        const DWORD length = GetFinalPathNameByHandleW(file.get(), name.data(), room, FILE_NAME_NORMALIZED);
        if (length == 0) raiseLast();
        name.resize(length);
        if (length < room) return toUtf8(utf16(name));
    }
}

std::string bytesOfFile(const std::string& ownPath) {
    const auto file = opened(wide(fromUtf8(ownPath)));
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size)) raiseLast();
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD count = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) raiseLast();
    bytes.resize(count);
    return bytes;
}

void replaceBytes(const std::string& ownPath, std::string_view oldBytes, std::string newBytes) {
    const auto path = wide(fromUtf8(ownPath));
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) raiseLast();
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) raise(ErrorNumber::PermissionDenied);
    if (bytesOfFile(ownPath) != oldBytes) raise(ErrorNumber::PathAccess);
    Successor successor(path);
    successor.write(newBytes);
    successor.replace(path);
}

}  // namespace tovera
