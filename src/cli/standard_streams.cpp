#include "cli/standard_streams.h"

namespace tovera::cli {

OutputBuffer::OutputBuffer(StandardStream stream) : stream_(stream), bytes_(65536) {
    setp(bytes_.data(), bytes_.data() + bytes_.size());
}

OutputBuffer::int_type OutputBuffer::overflow(int_type c) {
    if (sync() != 0) return traits_type::eof();
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    return sputc(traits_type::to_char_type(c));
}

int OutputBuffer::sync() {
    const std::string_view written(pbase(), pptr());
    const bool done = failure_.empty() && writeStream(stream_, written);
    if (!done && failure_.empty()) failure_ = streamFailure();
    setp(bytes_.data(), bytes_.data() + bytes_.size());
    return done ? 0 : -1;
}

InputBuffer::int_type InputBuffer::underflow() {
    shown_.flush();
    const auto count = readInput(bytes_);
    if (!count) failure_ = streamFailure();
    setg(bytes_.data(), bytes_.data(), bytes_.data() + count.value_or(0));
    return count.value_or(0) > 0 ? traits_type::to_int_type(bytes_.front()) : traits_type::eof();
}

}  // namespace tovera::cli
