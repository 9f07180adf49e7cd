#pragma once

/// KOVA_API marks what the shared library exports; everything else is hidden.
/// The library's own build defines KOVA_BUILDING. KOVA_EXPORT marks what any other library exports, for those that
/// are loaded on demand. KOVA_LOCAL marks what lies in an exported class and is
/// hidden all the same.
#if defined(_WIN32)
#  if defined(KOVA_BUILDING)
#    define KOVA_API __declspec(dllexport)
#  else
#    define KOVA_API __declspec(dllimport)
#  endif
#  define KOVA_EXPORT __declspec(dllexport)
#  define KOVA_LOCAL
#else
#  define KOVA_API __attribute__((visibility("default")))
#  define KOVA_EXPORT KOVA_API
#  define KOVA_LOCAL __attribute__((visibility("hidden")))
#endif

/// KOVA_PRINTF(f, a) lets the compiler check calls of a printf-like function whose format is
/// parameter f and whose arguments begin at a (0 for a va_list). A member function's hidden object
/// is parameter 1.
#if defined(__clang__)
#  define KOVA_PRINTF(f, a) __attribute__((format(printf, f, a)))
#elif defined(__GNUC__)
#  define KOVA_PRINTF(f, a) __attribute__((format(gnu_printf, f, a)))
#else
#  define KOVA_PRINTF(f, a)
#endif

/// Set for compilers that lay out neighbouring overloaded virtual functions in the reverse of their order
/// of declaration. Classes whose slot order matters then declare them in reverse.
#if defined(_MSC_VER)
#  define KOVA_OVERLOADS_REVERSED 1
#else
#  define KOVA_OVERLOADS_REVERSED 0
#endif
