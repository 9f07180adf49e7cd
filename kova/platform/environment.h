#pragma once

#include <string>
#include <vector>

/// The process's environment variables, as the C runtime has them, and the arguments that it was started with.
namespace kova::detail {

/// The block: entries "NAME=value" and a null pointer at the end. It lives until a variable is set.
char const* const* environmentBlock() noexcept;

/// The value of the first variable of that name, ignoring the case of ASCII letters; null where there is none.
char const* environmentValue(char const* name) noexcept;

/// Sets the variable of an entry "NAME=value", which is copied. An empty value sets an empty variable on
/// POSIX systems, and takes the variable away on Windows. False when the system refuses.
bool putEnvironmentEntry(char const* entry);

/// The program's arguments where the system has them in wide characters; false where those of main are all there is.
bool wideArguments(std::vector<std::u16string>& arguments);

} // namespace kova::detail
