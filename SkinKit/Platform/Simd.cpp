#include "SkinKit/Platform/Simd.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <numeric>
#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace SkinKit::Simd {
namespace {

void expandBGRPlain(const std::uint8_t* source, std::uint32_t* target, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i, source += 3)
        target[i] = 0xFF000000U | static_cast<std::uint32_t>(source[0]) << 16 |
                    static_cast<std::uint32_t>(source[1]) << 8 | source[2];
}

DifferenceCounts countDifferencesPlain(const std::uint32_t* ours, const std::uint32_t* reference,
                                       std::size_t count, std::uint8_t tolerance)
{
    DifferenceCounts counts;
    for (std::size_t i = 0; i < count; ++i) {
        if (ours[i] >> 24 == 0 || reference[i] >> 24 == 0)
            continue;
        int largest = 0;
        for (const int shift : {0, 8, 16})
            largest = std::max(largest, std::abs(static_cast<int>(ours[i] >> shift & 0xFF) -
                                                 static_cast<int>(reference[i] >> shift & 0xFF)));
        ++counts.compared;
        counts.differing += largest > 0 ? 1 : 0;
        counts.beyondTolerance += largest > tolerance ? 1 : 0;
    }
    return counts;
}

#if defined(__x86_64__)

// Each pixel's three bytes turned round, a gap for alpha: four pixels from the first 12 of 16
// bytes, and four from the last 12.
// clang-format off
alignas(32) constexpr std::int8_t turnPixels[32] = {
    2, 1, 0, -1,   5,  4,  3, -1,   8,  7,  6, -1,  11, 10,  9, -1,
    6, 5, 4, -1,   9,  8,  7, -1,  12, 11, 10, -1,  15, 14, 13, -1,
};
// clang-format on

__attribute__((target("ssse3"))) void expandBGRSsse3(const std::uint8_t* source,
                                                     std::uint32_t* target, std::size_t count)
{
    const __m128i order = _mm_load_si128(reinterpret_cast<const __m128i*>(turnPixels));
    const __m128i opaque = _mm_set1_epi32(static_cast<int>(0xFF000000U));
    // A load reads 16 bytes for the 12 it uses, so the last pixels are left to the plain loop.
    for (; count >= 6; count -= 4, source += 12, target += 4) {
        const auto bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target),
                         _mm_or_si128(_mm_shuffle_epi8(bytes, order), opaque));
    }
    expandBGRPlain(source, target, count);
}

// Eight pixels from 24 bytes, which two loads of 16 cover exactly.
__attribute__((target("avx2"))) inline void expandEight(const std::uint8_t* source,
                                                        std::uint32_t* target)
{
    const __m256i order = _mm256_load_si256(reinterpret_cast<const __m256i*>(turnPixels));
    const __m256i opaque = _mm256_set1_epi32(static_cast<int>(0xFF000000U));
    const auto first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const auto last = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + 8));
    const auto bytes = _mm256_inserti128_si256(_mm256_castsi128_si256(first), last, 1);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(target),
                        _mm256_or_si256(_mm256_shuffle_epi8(bytes, order), opaque));
}

// The first and the last eight may overlap those between. So no pixel is left to a slower loop, and
// all other stores are aligned, which saves a fifth of the time.
__attribute__((target("avx2"))) void expandBGRAvx2(const std::uint8_t* source,
                                                   std::uint32_t* target, std::size_t count)
{
    if (count < 8)
        return expandBGRPlain(source, target, count);
    expandEight(source, target);
    const auto place = reinterpret_cast<std::uintptr_t>(target) / sizeof(std::uint32_t);
    for (std::size_t i = 8 - place % 8; i + 8 < count; i += 8)
        expandEight(source + 3 * i, target + i);
    expandEight(source + 3 * (count - 8), target + (count - 8));
}

std::int64_t sum(const std::uint32_t (&lanes)[8])
{
    return std::accumulate(std::begin(lanes), std::end(lanes), std::int64_t{0});
}

// Eight pixels at a time. A lane of all ones is -1, so subtracting a mask counts.
__attribute__((target("avx2"))) DifferenceCounts
countDifferencesAvx2(const std::uint32_t* ours, const std::uint32_t* reference, std::size_t count,
                     std::uint8_t tolerance)
{
    const __m256i zero = _mm256_setzero_si256();
    const __m256i alphaBits = _mm256_set1_epi32(static_cast<int>(0xFF000000U));
    const __m256i tolerated = _mm256_set1_epi8(static_cast<char>(tolerance));
    __m256i transparent = zero, same = zero, within = zero;
    // The lanes count in 32 bits; a row is far shorter than would overflow them.
    const std::size_t whole = count / 8 * 8;
    for (std::size_t i = 0; i < whole; i += 8) {
        const auto a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(ours + i));
        const auto b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(reference + i));
        const auto skipped =
            _mm256_or_si256(_mm256_cmpeq_epi32(_mm256_and_si256(a, alphaBits), zero),
                            _mm256_cmpeq_epi32(_mm256_and_si256(b, alphaBits), zero));
        const auto distance = _mm256_andnot_si256(
            alphaBits, _mm256_or_si256(_mm256_subs_epu8(a, b), _mm256_subs_epu8(b, a)));
        const auto beyond = _mm256_subs_epu8(distance, tolerated);
        transparent = _mm256_sub_epi32(transparent, skipped);
        same = _mm256_sub_epi32(same, _mm256_or_si256(skipped, _mm256_cmpeq_epi32(distance, zero)));
        within =
            _mm256_sub_epi32(within, _mm256_or_si256(skipped, _mm256_cmpeq_epi32(beyond, zero)));
    }

    alignas(32) std::uint32_t lanes[3][8];
    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes[0]), transparent);
    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes[1]), same);
    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes[2]), within);
    const auto pixels = static_cast<std::int64_t>(whole);
    auto counts = countDifferencesPlain(ours + whole, reference + whole, count - whole, tolerance);
    counts.compared += pixels - sum(lanes[0]);
    counts.differing += pixels - sum(lanes[1]);
    counts.beyondTolerance += pixels - sum(lanes[2]);
    return counts;
}

#endif

std::vector<ExpandBGR> findExpandBGRForms()
{
    std::vector<ExpandBGR> forms{expandBGRPlain};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("ssse3"))
        forms.push_back(expandBGRSsse3);
    if (__builtin_cpu_supports("avx2"))
        forms.push_back(expandBGRAvx2);
#endif
    return forms;
}

std::vector<CountDifferences> findCountDifferencesForms()
{
    std::vector<CountDifferences> forms{countDifferencesPlain};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        forms.push_back(countDifferencesAvx2);
#endif
    return forms;
}

}

void expandBGR(const std::uint8_t* source, std::uint32_t* target, std::size_t count)
{
    static const ExpandBGR best = expandBGRForms().back();
    best(source, target, count);
}

std::span<const ExpandBGR> expandBGRForms()
{
    static const auto forms = findExpandBGRForms();
    return forms;
}

DifferenceCounts countDifferences(const std::uint32_t* ours, const std::uint32_t* reference,
                                  std::size_t count, std::uint8_t tolerance)
{
    static const CountDifferences best = countDifferencesForms().back();
    return best(ours, reference, count, tolerance);
}

std::span<const CountDifferences> countDifferencesForms()
{
    static const auto forms = findCountDifferencesForms();
    return forms;
}

}
