// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

/// The only place that turns text into numbers and numbers into text. Nothing here looks at the
/// process locale: files read and write the same bytes everywhere; the screen's digit grouping
/// is handed in.
namespace tarvelint {

/// A number does not fit the width of the field it is meant for.
class NumericOverflow : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The number at the start of a typed text: leading blanks are skipped, blanks, tabs and line feeds
/// inside are ignored; sign, digits, at most one ".", exponent with E, e, D or d. "1E" and "1E+" are
/// 1; text that does not begin with a number is 0. May return an infinity ("1E400").
[[nodiscard]] double leadingNumber(std::string_view text);

/// True when the whole text is one number: surrounding blanks and tabs, optional sign, digits with at
/// most one ".", optional exponent (E or e, optional sign, digits). No grouping, no hexadecimal, no
/// inf or nan; a number too large for a double is not a number.
[[nodiscard]] bool isNumeric(std::string_view text);

/// The value of a text for which `isNumeric` holds, correctly rounded; empty otherwise.
[[nodiscard]] std::optional<double> numericValue(std::string_view text);

/// Reads the number that starts exactly at `first` (sign, digits with at most one ".", optional
/// complete exponent; no blanks) and returns the character after it, or nullptr when there is none or
/// it is too large for a double. The reader's inner loop; same rounding as `numericValue`.
[[nodiscard]] const char* scanNumber(const char* first, const char* last, double& value);

/// Nearest integer, halves to even; empty when it does not fit or is not a number.
[[nodiscard]] std::optional<std::int16_t> roundedToInt16(double value);
[[nodiscard]] std::optional<std::int32_t> roundedToInt32(double value);

/// Nearest 32-bit float; empty when the value is not finite or too large.
[[nodiscard]] std::optional<float> roundedToFloat32(double value);

/// Why the three above have no value for a number, as a sentence for the user.
[[nodiscard]] std::string int16Overflow(double value);
[[nodiscard]] std::string int32Overflow(double value);
[[nodiscard]] std::string float32Overflow(double value);

/// As `roundedToInt16` and `roundedToInt32`, for commands that end there. @throws NumericOverflow instead of empty
[[nodiscard]] std::int16_t roundToInt16(double value);
[[nodiscard]] std::int32_t roundToInt32(double value);

/// As `roundedToFloat32`. @throws NumericOverflow instead of empty
[[nodiscard]] float toFloat32(double value);

/// Room that `writeFileText` and `writeGeneralText` need at `out`, however short the text.
inline constexpr int kNumberTextRoom = 32;

/// General text of a number: at most 15 significant digits, no trailing zeros, exponent form with
/// sign and at least two digits when the decimal exponent is below -4 or at least 15 (1E-05, 1E+15).
/// Negative zero is "0". Writes to `out` and returns the end of the text, which is not terminated. All
/// `kNumberTextRoom` characters from `out` on must be writable: blocks are copied past the end.
char* writeGeneralText(char* out, double value);
[[nodiscard]] std::string generalText(double value);

/// General text without the zero before the point: 0.5 is ".5", -0.25 is "-.25".
char* writeFileText(char* out, double value);
[[nodiscard]] std::string fileText(double value);

/// Shortest text of a 32-bit float, as settings store it ("1000", "0.05").
[[nodiscard]] std::string float32Text(float value);

/// Exactly four decimals for the screen, "." as decimal sign, "-" as minus, digits grouped by three
/// with `grouping` (UTF-8). A grouping sign of "." is left out: it would be read back as the point.
/// Halves away from zero in the decimal text of 15 significant digits; negative zero is "0.0000".
/// An infinity or a NaN (which no cell holds) is "inf", "-inf" or "nan", as in general text.
[[nodiscard]] std::string screenText(double value, std::string_view grouping);

/// A whole number grouped by three with `grouping`, whatever that sign is.
[[nodiscard]] std::string groupedText(std::int32_t value, std::string_view grouping);

/// Decimal digits of a whole number, no grouping.
[[nodiscard]] std::string plainText(std::int64_t value);

} // namespace tarvelint
