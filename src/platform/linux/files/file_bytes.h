#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tovera {

/// The bytes of a file; those of a small one need no memory of their own.
class FileBytes {
  public:
    FileBytes() = default;
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    static constexpr std::size_t smallSize = 16384;

    /// Room for a number of bytes, in place of those that are here.
    char* room(std::size_t size) {
        size_ = 0;
        if (size > smallSize) large_.resize(size);
        bytes_ = size > smallSize ? large_.data() : small_.data();
        return bytes_;
    }
    void setSize(std::size_t size) { size_ = size; }
    std::string_view view() const { return {bytes_, size_}; }

  private:
    std::array<char, smallSize> small_;
    std::string large_;
    char* bytes_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace tovera
