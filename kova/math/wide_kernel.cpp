#include <kova/math/kernels.h>

// Where exceptions are the system's own structured ones, compilers do not align the stack for vectors of this size.
#if defined(__SSE2__) && !defined(__SEH__)
#  include <cpuid.h>
#  include <immintrin.h>

namespace {

using kova::detail::PointMap;

/// The processor has AVX2, and the system keeps its registers. The compiler's own way to ask prepares the answer
/// whenever the library is loaded, and asking takes long.
bool hasWideVectors() noexcept {
    unsigned int a = 0;
    unsigned int b = 0;
    unsigned int c = 0;
    unsigned int d = 0;
    constexpr unsigned int kUsable = bit_OSXSAVE | bit_AVX;
    if (!__get_cpuid(1, &a, &b, &c, &d) || (c & kUsable) != kUsable)
        return false;
    unsigned int kept = 0;
    __asm__("xgetbv" : "=a"(kept), "=d"(d) : "c"(0));
    constexpr unsigned int kBothHalves = 6;
    return (kept & kBothHalves) == kBothHalves && __get_cpuid_count(7, 0, &a, &b, &c, &d) && (b & bit_AVX2) != 0;
}

[[gnu::target("avx2")]] inline __m256d loadFour(double const* at) noexcept {
    return _mm256_loadu_pd(at);
}

[[gnu::target("avx2")]] inline __m256d loadFour(float const* at) noexcept {
    return _mm256_cvtps_pd(_mm_loadu_ps(at));
}

[[gnu::target("avx2")]] inline void storeFour(__m256d numbers, double* at) noexcept {
    _mm256_storeu_pd(at, numbers);
}

[[gnu::target("avx2")]] inline void storeFour(__m256d numbers, float* at) noexcept {
    _mm_storeu_ps(at, _mm256_cvtpd_ps(numbers));
}

template <bool Scaled, bool Translated, class Number>
[[gnu::target("avx2")]] void transform(PointMap const& map, Number* p, Number const* end) noexcept {
    __m256d linear[3][3];
    __m256d translation[3];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            linear[i][j] = _mm256_set1_pd(map.linear[i][j]);
        translation[i] = _mm256_set1_pd(Translated ? map.translation[i] : 0.0);
    }
    __m256d const factor = _mm256_set1_pd(Scaled ? *map.factor : 1.0);
    constexpr int kUpperOfSecond = 12;
    constexpr int kEvenThenOdd = 10;
    constexpr int kOddThenEven = 5;
    for (; p != end; p += 12) {
        __m256d const a = loadFour(p);     // x0 y0 z0 x1
        __m256d const b = loadFour(p + 4); // y1 z1 x2 y2
        __m256d const c = loadFour(p + 8); // z2 x3 y3 z3
        __m256d const xy = _mm256_blend_pd(a, b, kUpperOfSecond);
        __m256d const zx = _mm256_permute2f128_pd(a, c, 0x21);
        __m256d const yz = _mm256_blend_pd(b, c, kUpperOfSecond);
        __m256d const x = _mm256_shuffle_pd(xy, zx, kEvenThenOdd);
        __m256d const y = _mm256_shuffle_pd(xy, yz, kOddThenEven);
        __m256d const z = _mm256_shuffle_pd(zx, yz, kEvenThenOdd);
        __m256d to[3];
        for (int i = 0; i < 3; ++i) {
            to[i] = linear[i][0] * x + linear[i][1] * y + linear[i][2] * z;
            if (Scaled)
                to[i] = to[i] * factor;
            if (Translated)
                to[i] = to[i] + translation[i];
        }
        __m256d const toXy = _mm256_unpacklo_pd(to[0], to[1]);
        __m256d const toZx = _mm256_shuffle_pd(to[2], to[0], kEvenThenOdd);
        __m256d const toYz = _mm256_unpackhi_pd(to[1], to[2]);
        storeFour(_mm256_permute2f128_pd(toXy, toZx, 0x20), p);
        storeFour(_mm256_blend_pd(toYz, toXy, kUpperOfSecond), p + 4);
        storeFour(_mm256_permute2f128_pd(toZx, toYz, 0x31), p + 8);
    }
}

} // namespace

template <class Number> long kova::detail::transformFours(PointMap const& map, Number* p, long count) noexcept {
    static bool const isPossible = hasWideVectors();
    if (!isPossible || !map.linear)
        return 0;
    long const whole = count - count % 4;
    Number const* const end = p + 3 * whole;
    if (map.factor && map.translation)
        transform<true, true>(map, p, end);
    else if (map.factor)
        transform<true, false>(map, p, end);
    else if (map.translation)
        transform<false, true>(map, p, end);
    else
        transform<false, false>(map, p, end);
    return whole;
}

#else

template <class Number>
long kova::detail::transformFours(PointMap const& /*map*/, Number* /*p*/, long /*count*/) noexcept {
    return 0;
}

#endif

template long kova::detail::transformFours(PointMap const& map, float* p, long count) noexcept;
template long kova::detail::transformFours(PointMap const& map, double* p, long count) noexcept;
