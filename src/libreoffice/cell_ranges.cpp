#include "libreoffice/cell_ranges.h"

#include <algorithm>
#include <bit>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/script/BasicErrorException.hpp>

namespace tovera::office {
namespace {

using Range = Sequence<Sequence<Any>>;

/// The sheet's own numbers for errors of cells.
enum class CellError : sal_uInt16 { InvalidArgument = 502, WrongType = 519, NotAvailable = 32767 };

CellError errorOf(const css::script::BasicErrorException& failure) {
    return failure.ErrorCode == static_cast<sal_Int32>(Number::TypeMismatch) ? CellError::WrongType
                                                                             : CellError::InvalidArgument;
}

/// The error of one cell inside a range of results: the sheet reads it out of a number that is none.
Any errorCell(CellError error) {
    constexpr sal_uInt64 notANumber = 0x7FF8000000000000;
    return Any(std::bit_cast<double>(notANumber | static_cast<sal_uInt64>(error)));
}

struct Size {
    sal_Int32 rows = 0;
    sal_Int32 columns = 0;
};

Size sizeOf(const Range& range) {
    return {range.getLength(), range.hasElements() ? range[0].getLength() : 0};
}

/// The size of the results; none where no argument is a range.
Size sizeOf(const std::vector<Any>& arguments) {
    Size size;
    for (const auto& argument : arguments) {
        Range range;
        if (!(argument >>= range)) continue;
        const auto [rows, columns] = sizeOf(range);
        size = {std::max(size.rows, rows), std::max(size.columns, columns)};
    }
    return size;
}

/// What an argument holds for a cell; false outside of its range.
bool take(const Any& argument, sal_Int32 row, sal_Int32 column, Any& value) {
    Range range;
    if (!(argument >>= range)) {
        value = argument;
        return true;
    }
    const auto [rows, columns] = sizeOf(range);
    if (rows == 1) row = 0;
    if (columns == 1) column = 0;
    if (row >= rows || column >= columns) return false;
    value = range[row][column];
    return true;
}

Any resultOf(const std::vector<Any>& arguments, sal_Int32 row, sal_Int32 column,
             const std::function<Any(const std::vector<Any>&)>& call) {
    std::vector<Any> values(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (!take(arguments[i], row, column, values[i])) return errorCell(CellError::NotAvailable);
    }
    try {
        return call(values);
    } catch (const css::script::BasicErrorException& failure) {
        return errorCell(errorOf(failure));
    }
}

/// For a cell by itself the sheet tells errors by exceptions.
Any singleResult(const std::vector<Any>& arguments, const std::function<Any(const std::vector<Any>&)>& call) {
    try {
        return call(arguments);
    } catch (const css::script::BasicErrorException& failure) {
        if (errorOf(failure) == CellError::WrongType) throw;
        throw css::lang::IllegalArgumentException(failure.Message, {}, 0);
    }
}

}  // namespace

Any forEachCell(const std::vector<Any>& arguments, const std::function<Any(const std::vector<Any>&)>& call) {
    const auto size = sizeOf(arguments);
    if (size.rows == 0) return singleResult(arguments, call);
    Range results(size.rows);
    for (sal_Int32 row = 0; row < size.rows; ++row) {
        Sequence<Any> cells(size.columns);
        for (sal_Int32 column = 0; column < size.columns; ++column)
            cells.getArray()[column] = resultOf(arguments, row, column, call);
        results.getArray()[row] = cells;
    }
    return Any(results);
}

}  // namespace tovera::office
