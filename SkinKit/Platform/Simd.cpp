#include "SkinKit/Platform/Simd.h"

#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace SkinKit::Simd {
namespace {

#if defined(__x86_64__)

// Four pixels from the low 12 of 16 bytes: each one's three bytes turned round, a gap for alpha.
__attribute__((target("ssse3"))) __m128i fourPixelsOrder()
{
    return _mm_setr_epi8(2, 1, 0, -1, 5, 4, 3, -1, 8, 7, 6, -1, 11, 10, 9, -1);
}

__attribute__((target("ssse3"))) void expandBGRSsse3(const std::uint8_t* source,
                                                     std::uint32_t* target, std::size_t count)
{
    const __m128i order = fourPixelsOrder();
    const __m128i opaque = _mm_set1_epi32(static_cast<int>(0xFF000000U));
    // A load reads 16 bytes for the 12 it uses, so the last pixels are left to the plain loop.
    for (; count >= 6; count -= 4, source += 12, target += 4) {
        const auto bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target),
                         _mm_or_si128(_mm_shuffle_epi8(bytes, order), opaque));
    }
    expandBGRPlain(source, target, count);
}

__attribute__((target("avx2"))) void expandBGRAvx2(const std::uint8_t* source,
                                                   std::uint32_t* target, std::size_t count)
{
    const __m256i order = _mm256_broadcastsi128_si256(fourPixelsOrder());
    const __m256i opaque = _mm256_set1_epi32(static_cast<int>(0xFF000000U));
    for (; count >= 10; count -= 8, source += 24, target += 8) {
        const auto low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
        const auto high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + 12));
        const auto bytes = _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(target),
                            _mm256_or_si256(_mm256_shuffle_epi8(bytes, order), opaque));
    }
    expandBGRPlain(source, target, count);
}

#endif

std::vector<ExpandBGR> findForms()
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

}

void expandBGRPlain(const std::uint8_t* source, std::uint32_t* target, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i, source += 3)
        target[i] = 0xFF000000U | static_cast<std::uint32_t>(source[0]) << 16 |
                    static_cast<std::uint32_t>(source[1]) << 8 | source[2];
}

void expandBGR(const std::uint8_t* source, std::uint32_t* target, std::size_t count)
{
    static const ExpandBGR best = expandBGRForms().back();
    best(source, target, count);
}

std::span<const ExpandBGR> expandBGRForms()
{
    static const auto forms = findForms();
    return forms;
}

}
