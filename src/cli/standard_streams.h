#pragma once

#include <array>
#include <istream>
#include <ostream>
#include <vector>

#include "platform/program_streams.h"

namespace tovera::cli {

/// Output of the program, in large pieces.
class OutputBuffer : public std::streambuf {
  public:
    explicit OutputBuffer(StandardStream stream);
    ~OutputBuffer() override { OutputBuffer::sync(); }

    /// Why writing failed; empty as long as all is well.
    const std::string& failure() const { return failure_; }

  protected:
    int_type overflow(int_type c) override;
    int sync() override;

  private:
    StandardStream stream_;
    std::vector<char> bytes_;
    std::string failure_;
};

/// Input of the program. What has been written so far is shown whenever no further input is ready.
class InputBuffer : public std::streambuf {
  public:
    explicit InputBuffer(std::ostream& shown) : shown_(shown) {}

    /// Why reading failed; empty as long as all is well.
    const std::string& failure() const { return failure_; }

  protected:
    int_type underflow() override;

  private:
    std::ostream& shown_;
    std::array<char, 65536> bytes_{};
    std::string failure_;
};

}  // namespace tovera::cli
