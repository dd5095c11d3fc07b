#pragma once

#include <array>
#include <string>
#include <string_view>

// Numbers of the charting package's files: Microsoft Binary Format, four bytes.
namespace metastock {

/// The four bytes of one field, as a file holds them.
using Field = std::array<unsigned char, 4>;

/// IEEE bytes into MBF bytes. An IEEE 0.0 becomes 00 00 00 02, not four zeros. Any bytes are fine.
[[nodiscard]] Field IeeeToMbf(Field ieee);
/// The other way. Of a negative number with an even exponent one bit of the mantissa comes out
/// wrong; four zeros are 0.0. Any bytes are fine, and may give an infinity or no number.
[[nodiscard]] Field MbfToIeee(Field mbf);

/// The same on numbers. `bytes` begins with the field; a short one reads as 0.0.
[[nodiscard]] float FromMbf(std::string_view bytes);
void AppendMbf(std::string& out, float value);

}  // namespace metastock
