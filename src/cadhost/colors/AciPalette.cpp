#include "cadhost/colors/AciPalette.h"

#include <array>
#include <cstddef>

namespace cadhost {

namespace {

// Indexes 10..249 are 24 hues, 15 degrees apart, each in five brightness levels, every
// level once saturated and once pale. Along a hue sector a channel climbs in quarter
// steps; the palette's values for those steps are not plain fractions of the level, so
// each level keeps its five step values as the host's palette has them.
struct Level {
    std::array<std::uint8_t, 5> saturated;
    std::array<std::uint8_t, 5> pale;
};

constexpr std::array<Level, 5> kLevels{{
    {{0, 63, 127, 191, 255}, {127, 159, 191, 223, 255}},
    {{0, 41, 82, 124, 165}, {82, 103, 124, 145, 165}},
    {{0, 31, 63, 95, 127}, {63, 79, 95, 111, 127}},
    {{0, 19, 38, 57, 76}, {38, 47, 57, 66, 76}},
    {{0, 9, 19, 28, 38}, {19, 23, 28, 33, 38}},
}};

// Quarter steps (0..4) of a channel whose full value lies at 0 degrees, for a hue given
// in 15-degree steps (0..23): full over +-60 degrees, ramping to nothing at +-120.
int channelStep(int hueStep) {
    int d = ((hueStep % 24) + 24) % 24;
    if (d > 12) d = 24 - d;        // distance in 15-degree steps, 0..12
    if (d <= 4) return 4;
    if (d >= 8) return 0;
    return 8 - d;
}

std::uint32_t hueColour(int index) {
    const int k = index - 10;
    const int hue = k / 10;
    const int shade = k % 10;
    const Level& level = kLevels[std::size_t(shade / 2)];
    const auto& steps = (shade % 2) ? level.pale : level.saturated;
    const std::uint32_t r = steps[std::size_t(channelStep(hue))];
    const std::uint32_t g = steps[std::size_t(channelStep(hue - 8))];
    const std::uint32_t b = steps[std::size_t(channelStep(hue - 16))];
    return (r << 16) | (g << 8) | b;
}

constexpr std::array<std::uint32_t, 10> kFirstTen{
    0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0,
};

constexpr std::array<std::uint32_t, 6> kGreys{0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};

}  // namespace

std::uint32_t aciRgb(int index) {
    if (index < 1 || index > 255) return 0;
    if (index < 10) return kFirstTen[std::size_t(index)];
    if (index < 250) return hueColour(index);
    return kGreys[std::size_t(index - 250)];
}

}  // namespace cadhost
