#include "layers/ColorNearestIndex.h"

#include <initializer_list>
#include <limits>

#include "module/HostBinding.h"

namespace ardo {

namespace {

long distanceSquared(std::uint32_t a, std::uint32_t b) {
    long sum = 0;
    for (int shift : {16, 8, 0}) {
        const long d = long((a >> shift) & 0xFF) - long((b >> shift) & 0xFF);
        sum += d * d;
    }
    return sum;
}

}  // namespace

int nearestIndexColor(std::uint32_t rgb) {
    int best = 1;
    long bestDistance = std::numeric_limits<long>::max();
    for (int index = 1; index <= 255; ++index) {
        const long d = distanceSquared(rgb, host().rgbOfIndexColor(index));
        if (d < bestDistance) {
            best = index;
            bestDistance = d;
        }
    }
    return best;
}

}  // namespace ardo
