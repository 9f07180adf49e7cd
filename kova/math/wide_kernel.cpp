#include <kova/math/kernels.h>

// Compilers for 64-bit Windows do not align the stack for vectors of this size.
#if defined(__SSE2__) && !defined(_WIN64)
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

/// Two of one vector's four floats and two of another's, by their numbers.
constexpr int pick(int first, int second, int third, int fourth) {
    return first | second << 2 | third << 4 | fourth << 6;
}

template <bool Translated> [[gnu::target("avx2")]] void transform(PointMap const& map, float* p, float* end) noexcept {
    __m256d linear[3][3];
    __m256d translation[3];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            linear[i][j] = _mm256_set1_pd(map.linear[i][j]);
        translation[i] = _mm256_set1_pd(Translated ? map.translation[i] : 0.0);
    }
    for (; p != end; p += 12) {
        __m128 const a = _mm_loadu_ps(p);     // x0 y0 z0 x1
        __m128 const b = _mm_loadu_ps(p + 4); // y1 z1 x2 y2
        __m128 const c = _mm_loadu_ps(p + 8); // z2 x3 y3 z3
        __m128 const yz = _mm_shuffle_ps(a, b, pick(1, 2, 0, 1));
        __m128 const xy = _mm_shuffle_ps(b, c, pick(2, 3, 1, 2));
        __m256d const x = _mm256_cvtps_pd(_mm_shuffle_ps(a, xy, pick(0, 3, 0, 2)));
        __m256d const y = _mm256_cvtps_pd(_mm_shuffle_ps(yz, xy, pick(0, 2, 1, 3)));
        __m256d const z = _mm256_cvtps_pd(_mm_shuffle_ps(yz, c, pick(1, 3, 0, 3)));
        __m128 to[3];
        for (int i = 0; i < 3; ++i) {
            __m256d const sum = linear[i][0] * x + linear[i][1] * y + linear[i][2] * z;
            to[i] = _mm256_cvtpd_ps(Translated ? sum + translation[i] : sum);
        }
        __m128 const low = _mm_unpacklo_ps(to[0], to[1]);                  // x0 y0 x1 y1
        __m128 const high = _mm_unpackhi_ps(to[0], to[1]);                 // x2 y2 x3 y3
        __m128 const first = _mm_shuffle_ps(to[2], low, pick(0, 1, 2, 3)); // z0 z1 x1 y1
        __m128 const last = _mm_shuffle_ps(to[2], high, pick(2, 3, 2, 3)); // z2 z3 x3 y3
        _mm_storeu_ps(p, _mm_shuffle_ps(low, first, pick(0, 1, 0, 2)));
        _mm_storeu_ps(p + 4, _mm_shuffle_ps(first, high, pick(3, 1, 0, 1)));
        _mm_storeu_ps(p + 8, _mm_shuffle_ps(last, last, pick(0, 2, 3, 1)));
    }
}

} // namespace

long kova::detail::transformFours(PointMap const& map, float* p, long count) noexcept {
    static bool const isPossible = hasWideVectors();
    if (!isPossible || !map.linear || map.factor)
        return 0;
    long const whole = count - count % 4;
    if (map.translation)
        transform<true>(map, p, p + 3 * whole);
    else
        transform<false>(map, p, p + 3 * whole);
    return whole;
}

#else

long kova::detail::transformFours(PointMap const& /*map*/, float* /*p*/, long /*count*/) noexcept {
    return 0;
}

#endif
