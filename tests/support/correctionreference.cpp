// SPDX-License-Identifier: BSD-3-Clause
#include "correctionreference.h"

#include <vtkType.h>

#include <cstring>
#include <random>

namespace ovl::test {

const std::array<SampleType, 8> correctionInputs = {{
    {VTK_CHAR, "char", 1, SampleType::Signed},
    {VTK_UNSIGNED_CHAR, "unsigned char", 1, SampleType::Unsigned},
    {VTK_SHORT, "short", 2, SampleType::Signed},
    {VTK_UNSIGNED_SHORT, "unsigned short", 2, SampleType::Unsigned},
    {VTK_INT, "int", 4, SampleType::Signed},
    {VTK_UNSIGNED_INT, "unsigned int", 4, SampleType::Unsigned},
    {VTK_LONG, "long", VTK_SIZEOF_LONG, SampleType::Signed},
    {VTK_UNSIGNED_LONG, "unsigned long", VTK_SIZEOF_LONG, SampleType::Unsigned},
}};

const std::array<SampleType, 14> correctionOutputs = {{
    correctionInputs[0],
    correctionInputs[1],
    correctionInputs[2],
    correctionInputs[3],
    correctionInputs[4],
    correctionInputs[5],
    correctionInputs[6],
    correctionInputs[7],
    {VTK_SIGNED_CHAR, "signed char", 1, SampleType::Signed},
    {VTK_FLOAT, "float", 4, SampleType::Floating},
    {VTK_DOUBLE, "double", 8, SampleType::Floating},
    {VTK_ID_TYPE, "id type", VTK_SIZEOF_ID_TYPE, SampleType::Signed},
    {VTK_LONG_LONG, "long long", 8, SampleType::Signed},
    {VTK_UNSIGNED_LONG_LONG, "unsigned long long", 8, SampleType::Unsigned},
}};

namespace {

Integer powerOfTwo(int exponent) { return Integer {1} << exponent; }

/** What remains of a number in so many bytes. */
Integer cut(Integer value, const SampleType& type)
{
    const Integer modulus = powerOfTwo(8 * type.bytes);
    Integer rest = value % modulus;
    if (rest < 0)
        rest += modulus;
    return type.kind == SampleType::Signed && rest >= modulus / 2 ? rest - modulus : rest;
}

Integer read(const std::byte* sample, const SampleType& type)
{
    Integer value = 0;
    for (int i = 0; i < type.bytes; ++i) // least significant byte first
        value += powerOfTwo(8 * i) * std::to_integer<int>(sample[i]);
    return cut(value, type);
}

template <class T> void append(std::vector<std::byte>& bytes, T value)
{
    const std::size_t size = bytes.size();
    bytes.resize(size + sizeof(T));
    std::memcpy(bytes.data() + size, &value, sizeof(T));
}

void write(std::vector<std::byte>& bytes, Integer value, const SampleType& type)
{
    if (type.kind == SampleType::Floating) {
        if (type.bytes == 4)
            append(bytes, static_cast<float>(value));
        else
            append(bytes, static_cast<double>(value));
        return;
    }
    Integer rest = cut(value, {type.code, type.name, type.bytes, SampleType::Unsigned});
    for (int i = 0; i < type.bytes; ++i, rest /= 256)
        bytes.push_back(static_cast<std::byte>(rest % 256));
}

Integer shiftedSample(Integer value, int shift)
{
    if (shift <= 0)
        return value;
    const Integer divisor = powerOfTwo(shift > 64 ? 64 : shift); // no sample has more bits
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

Integer maskedSample(
    Integer value, int channel, const SampleType& in, const CorrectionSettings& settings)
{
    const auto word
        = [&](int index) { return cut(settings.words.at(static_cast<std::size_t>(index)), in); };
    return cut((shiftedSample(value, settings.shift) | word(4 + channel)) & word(channel), in);
}

constexpr int none = -1;

/** For each component of the output the input's channel that lands there. */
struct Sources {
    int count;
    std::array<int, 4> channels;
};

Sources sourcesOf(int components, bool expand)
{
    switch (components) {
    case 1:
        return {expand ? 4 : 1, {0, none, none, none}};
    case 2:
        return {expand ? 4 : 2, {0, 1, none, none}};
    case 3:
        return {expand ? 4 : 3, {2, 1, 0, none}};
    case 4:
        return {4, {2, 1, 0, 3}};
    default:
        return {0, {}};
    }
}

} // namespace

void appendCorrectedPixel(std::vector<std::byte>& bytes, const std::byte* pixel,
    const SampleType& in, int components, const SampleType& out, const CorrectionSettings& settings)
{
    const Sources sources = sourcesOf(components, settings.expand);
    for (int place = 0; place < sources.count; ++place) {
        const int channel = sources.channels.at(static_cast<std::size_t>(place));
        Integer value = place == 3 ? cut(255, in) : 0;
        if (channel != none) {
            value = read(pixel + std::ptrdiff_t {channel} * in.bytes, in);
            value = settings.expand ? maskedSample(value, channel, in, settings)
                                    : shiftedSample(value, settings.shift);
        }
        write(bytes, value, out);
    }
}

std::vector<std::byte> correctionSamples(
    const SampleType& type, std::size_t count, std::uint32_t seed)
{
    std::vector<Integer> values = {0, 1, -1, -2, 2, 0x0ABC, 0x80, 0x7F, 0xFF, 0x100, 0x7FFF, 0x8000,
        0xFFFF, 0x10000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, powerOfTwo(32), powerOfTwo(53) + 1,
        powerOfTwo(63) - 1, powerOfTwo(63), powerOfTwo(64) - 1};
    std::mt19937_64 noise(seed);
    while (values.size() < count)
        values.push_back(noise());
    const SampleType cutType = {type.code, type.name, type.bytes, SampleType::Unsigned};
    std::vector<std::byte> bytes;
    for (std::size_t i = 0; i < count; ++i)
        write(bytes, values[i], cutType);
    return bytes;
}

} // namespace ovl::test
