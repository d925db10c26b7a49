// Numbers read and written as in the "C" locale, whatever locale the process has set.
#pragma once

#include <cstdint>
#include <string>

namespace qz {

/// The number at the start of a terminated text, behind white space; 0 where there is none. Integers outside their
/// type's range become its nearest end; doubles may be hexadecimal, "inf" or "nan".
int ReadInt(const char* text);
long ReadLong(const char* text);
std::int64_t ReadInt64(const char* text);
double ReadDouble(const char* text);

/// The number with six digits behind the point, as "%f" prints it.
std::string WriteDouble(double number);

}  // namespace qz
