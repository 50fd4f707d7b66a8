#include "SkinKit/Graphics/Simd.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <numeric>
#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

// Written with the compiler's intrinsics, chosen at run time: the packaged portable SIMD library
// adds 2.8 ms to every start. The plain loops are the fallback, and what the tests compare the
// others with.
namespace SkinKit::Simd {
namespace {

void expandBytesPlain(const std::uint8_t* source, std::uint32_t* target, std::size_t count,
                      int pixelBytes, const ByteOrder& order)
{
    const auto channel = [&source](std::uint8_t place) -> std::uint32_t {
        return place == ByteOrder::none ? 0 : source[place];
    };
    for (std::size_t i = 0; i < count; ++i, source += pixelBytes)
        target[i] = 0xFF000000U | channel(order.blue) << 16 | channel(order.green) << 8 |
                    channel(order.red);
}

// Exact, although the scale is not: it is too large by less than makes any quotient reach the next
// whole number, from which all others are 2^-32 or more away.
[[gnu::always_inline]] inline std::uint32_t channelOf(std::uint32_t pixel, const BitField& field)
{
    const auto value = std::min((pixel & field.mask) >> field.shift, field.largest);
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(value * field.scale));
}

template <typename Source>
[[gnu::always_inline]] inline void expandFieldsAs(const std::uint8_t* source,
                                                  std::uint32_t* __restrict target,
                                                  std::size_t count, const BitFields fields)
{
    for (std::size_t i = 0; i < count; ++i) {
        Source pixel;
        std::memcpy(&pixel, source + i * sizeof pixel, sizeof pixel);
        target[i] = 0xFF000000U | channelOf(pixel, fields.blue) << 16 |
                    channelOf(pixel, fields.green) << 8 | channelOf(pixel, fields.red);
    }
}

[[gnu::always_inline]] inline void expandFieldsInline(const std::uint8_t* source,
                                                      std::uint32_t* target, std::size_t count,
                                                      int pixelBytes, const BitFields& fields)
{
    if (pixelBytes == 2)
        expandFieldsAs<std::uint16_t>(source, target, count, fields);
    else
        expandFieldsAs<std::uint32_t>(source, target, count, fields);
}

void expandFieldsPlain(const std::uint8_t* source, std::uint32_t* target, std::size_t count,
                       int pixelBytes, const BitFields& fields)
{
    expandFieldsInline(source, target, count, pixelBytes, fields);
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

// What to add to a byte's place for each of eight pixels: four are in the first 16 bytes, four in
// the last 16. `ByteOrder::none` stays none.
template <std::size_t pixelBytes>
alignas(32) constexpr auto pixelOffsets = [] {
    std::array<std::uint32_t, 8> offsets{};
    for (std::size_t i = 0; i < 8; ++i) {
        const std::size_t start = i < 4 ? 0 : 8 * pixelBytes - 16;
        offsets[i] = static_cast<std::uint32_t>((i * pixelBytes - start) * 0x010101);
    }
    return offsets;
}();

int packed(const ByteOrder& order)
{
    return static_cast<int>(static_cast<std::uint32_t>(ByteOrder::none) << 24 |
                            static_cast<std::uint32_t>(order.blue) << 16 |
                            static_cast<std::uint32_t>(order.green) << 8 | order.red);
}

template <std::size_t pixelBytes>
__attribute__((target("ssse3"))) void expandFourByFour(const std::uint8_t* source,
                                                       std::uint32_t* target, std::size_t count,
                                                       const ByteOrder& order)
{
    const __m128i opaque = _mm_set1_epi32(static_cast<int>(0xFF000000U));
    const __m128i places = _mm_add_epi32(
        _mm_set1_epi32(packed(order)),
        _mm_load_si128(reinterpret_cast<const __m128i*>(pixelOffsets<pixelBytes>.data())));
    // A load reads 16 bytes, also where it uses 12; so the last pixels are left to the plain loop.
    for (; count * pixelBytes >= 16; count -= 4, source += 4 * pixelBytes, target += 4) {
        const auto bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target),
                         _mm_or_si128(_mm_shuffle_epi8(bytes, places), opaque));
    }
    expandBytesPlain(source, target, count, pixelBytes, order);
}

void expandBytesSsse3(const std::uint8_t* source, std::uint32_t* target, std::size_t count,
                      int pixelBytes, const ByteOrder& order)
{
    (pixelBytes == 3 ? expandFourByFour<3> : expandFourByFour<4>)(source, target, count, order);
}

// Calls `eight` for places of eight pixels each that cover `count`, which is 8 or more. The first
// and the last may overlap those between: no pixel is left to a slower loop, and all other stores
// are aligned. Four places at a time, so that few turns make a row.
template <std::size_t pixelBytes, typename Eight>
__attribute__((target("avx2"))) inline void expandByEights(const std::uint8_t* source,
                                                           std::uint32_t* target, std::size_t count,
                                                           const Eight& eight)
{
    const auto expand = [&](std::size_t i) __attribute__((target("avx2"))) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + i), eight(source + pixelBytes * i));
    };
    expand(0);
    std::size_t i = 8 - reinterpret_cast<std::uintptr_t>(target) / sizeof(std::uint32_t) % 8;
    for (; i + 32 < count; i += 32)
        for (std::size_t j = i; j < i + 32; j += 8)
            expand(j);
    for (; i + 8 < count; i += 8)
        expand(i);
    expand(count - 8);
}

template <std::size_t pixelBytes>
struct ShuffledBytes {
    __m256i places;

    // Eight pixels are 24 bytes, which two loads of 16 cover exactly, or 32.
    __attribute__((target("avx2"))) __m256i operator()(const std::uint8_t* source) const
    {
        const auto* const first = reinterpret_cast<const __m128i*>(source);
        const auto* const last =
            reinterpret_cast<const __m128i*>(source + 8 * pixelBytes - sizeof(__m128i));
        const __m256i bytes = pixelBytes == 4
                                  ? _mm256_loadu_si256(reinterpret_cast<const __m256i*>(source))
                                  : _mm256_loadu2_m128i(last, first);
        return _mm256_or_si256(_mm256_shuffle_epi8(bytes, places),
                               _mm256_set1_epi32(static_cast<int>(0xFF000000U)));
    }
};

template <std::size_t pixelBytes>
__attribute__((target("avx2"))) void shuffleByEights(const std::uint8_t* source,
                                                     std::uint32_t* target, std::size_t count,
                                                     const ByteOrder& order)
{
    const __m256i offsets =
        _mm256_load_si256(reinterpret_cast<const __m256i*>(pixelOffsets<pixelBytes>.data()));
    expandByEights<pixelBytes>(
        source, target, count,
        ShuffledBytes<pixelBytes>{_mm256_add_epi32(_mm256_set1_epi32(packed(order)), offsets)});
}

void expandBytesAvx2(const std::uint8_t* source, std::uint32_t* target, std::size_t count,
                     int pixelBytes, const ByteOrder& order)
{
    if (count < 8)
        return expandBytesPlain(source, target, count, pixelBytes, order);
    (pixelBytes == 3 ? shuffleByEights<3> : shuffleByEights<4>)(source, target, count, order);
}

// Fields of up to 12 bits are scaled as whole numbers of 24 bits behind the point: rounding the
// factor up adds less than 2^-12 to a quotient, and those that are not whole are farther away from
// the next whole number.
struct EightFields {
    static constexpr std::uint32_t largest = (1U << 12) - 1;

    __attribute__((target("avx2"))) explicit EightFields(const BitField& field)
        : mask_(_mm256_set1_epi32(static_cast<int>(field.mask))),
          shift_(_mm256_set1_epi32(static_cast<int>(field.shift))),
          largest_(_mm256_set1_epi32(static_cast<int>(field.largest))),
          factor_(_mm256_set1_epi32(static_cast<int>(field.factor)))
    {
    }

    // The channel is the highest byte of each product.
    __attribute__((target("avx2"))) __m256i operator()(__m256i pixels) const
    {
        const auto value = _mm256_srlv_epi32(_mm256_and_si256(pixels, mask_), shift_);
        return _mm256_mullo_epi32(_mm256_min_epu32(value, largest_), factor_);
    }

private:
    __m256i mask_, shift_, largest_, factor_;
};

template <std::size_t pixelBytes>
struct ScaledFields {
    EightFields red, green, blue;

    __attribute__((target("avx2"))) __m256i operator()(const std::uint8_t* source) const
    {
        const __m256i pixels =
            pixelBytes == 4
                ? _mm256_loadu_si256(reinterpret_cast<const __m256i*>(source))
                : _mm256_cvtepu16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(source)));
        const auto redAndGreen = _mm256_or_si256(
            _mm256_srli_epi32(red(pixels), 24),
            _mm256_and_si256(_mm256_srli_epi32(green(pixels), 16), _mm256_set1_epi32(0xFF00)));
        const auto blueOnly =
            _mm256_and_si256(_mm256_srli_epi32(blue(pixels), 8), _mm256_set1_epi32(0xFF0000));
        return _mm256_or_si256(_mm256_or_si256(redAndGreen, blueOnly),
                               _mm256_set1_epi32(static_cast<int>(0xFF000000U)));
    }
};

template <std::size_t pixelBytes>
__attribute__((target("avx2"))) void scaleByEights(const std::uint8_t* source,
                                                   std::uint32_t* target, std::size_t count,
                                                   const BitFields& fields)
{
    expandByEights<pixelBytes>(source, target, count,
                               ScaledFields<pixelBytes>{EightFields(fields.red),
                                                        EightFields(fields.green),
                                                        EightFields(fields.blue)});
}

__attribute__((target("avx2"))) void expandFieldsAvx2(const std::uint8_t* source,
                                                      std::uint32_t* target, std::size_t count,
                                                      int pixelBytes, const BitFields& fields)
{
    const auto largest = std::max({fields.red.largest, fields.green.largest, fields.blue.largest});
    if (count < 8 || largest > EightFields::largest)
        expandFieldsInline(source, target, count, pixelBytes, fields);
    else if (pixelBytes == 2)
        scaleByEights<2>(source, target, count, fields);
    else
        scaleByEights<4>(source, target, count, fields);
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

std::vector<ExpandBytes> findExpandBytesForms()
{
    std::vector<ExpandBytes> forms{expandBytesPlain};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("ssse3"))
        forms.push_back(expandBytesSsse3);
    if (__builtin_cpu_supports("avx2"))
        forms.push_back(expandBytesAvx2);
#endif
    return forms;
}

std::vector<ExpandFields> findExpandFieldsForms()
{
    std::vector<ExpandFields> forms{expandFieldsPlain};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        forms.push_back(expandFieldsAvx2);
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

void expandBytes(const std::uint8_t* source, std::uint32_t* target, std::size_t count,
                 int pixelBytes, const ByteOrder& order)
{
    static const ExpandBytes best = expandBytesForms().back();
    best(source, target, count, pixelBytes, order);
}

std::span<const ExpandBytes> expandBytesForms()
{
    static const auto forms = findExpandBytesForms();
    return forms;
}

BitField::BitField(std::uint32_t channelMask)
    : mask(channelMask), shift(mask == 0 ? 0 : static_cast<std::uint32_t>(std::countr_zero(mask))),
      largest(static_cast<std::uint32_t>((std::uint64_t{1} << std::popcount(mask)) - 1)),
      scale(mask == 0 ? 0 : std::nextafter(255.0 / largest, 256.0)),
      factor(static_cast<std::uint32_t>(mask == 0 ? 0 : ((255ULL << 24) + largest - 1) / largest))
{
}

void expandFields(const std::uint8_t* source, std::uint32_t* target, std::size_t count,
                  int pixelBytes, const BitFields& fields)
{
    static const ExpandFields best = expandFieldsForms().back();
    best(source, target, count, pixelBytes, fields);
}

std::span<const ExpandFields> expandFieldsForms()
{
    static const auto forms = findExpandFieldsForms();
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
