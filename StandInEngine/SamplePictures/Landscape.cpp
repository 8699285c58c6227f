#include "SamplePictures/Landscape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

struct Color {
    float red = 0;
    float green = 0;
    float blue = 0;
};

Color mix(const Color& from, const Color& to, float part) {
    return {from.red + (to.red - from.red) * part, from.green + (to.green - from.green) * part,
            from.blue + (to.blue - from.blue) * part};
}

std::uint32_t scramble(std::uint32_t value) {
    value ^= value >> 16;
    value *= 0x7feb352dU;
    value ^= value >> 15;
    value *= 0x846ca68bU;
    value ^= value >> 16;
    return value;
}

class Painter {
public:
    Painter(unsigned width, unsigned height, std::uint32_t seed)
        : bitmap_(width, height), width_(static_cast<float>(width)), height_(static_cast<float>(height)),
          random_(scramble(seed + 1)) {
        skyTop_ = {between(20, 90), between(60, 130), between(120, 220)};
        skyBottom_ = {between(200, 255), between(160, 220), between(120, 220)};
        sunX_ = between(0.15F, 0.85F) * width_;
        sunY_ = between(0.1F, 0.4F) * height_;
        sunRadius_ = between(0.03F, 0.08F) * height_;
        for (std::size_t index = 0; index < ranges_.size(); ++index) {
            drawOutline(ranges_[index], 0.45F + 0.16F * static_cast<float>(index));
        }
    }

    Bitmap paint() {
        for (unsigned y = 0; y < bitmap_.height; ++y) {
            std::uint8_t* point = bitmap_.row(y);
            for (unsigned x = 0; x < bitmap_.width; ++x, point += 3) {
                const Color color = colorAt(x, y);
                const std::uint32_t grain = scramble(random_ ^ (y * bitmap_.width + x));
                point[0] = grainy(color.red, grain);
                point[1] = grainy(color.green, grain >> 8);
                point[2] = grainy(color.blue, grain >> 16);
            }
        }
        return std::move(bitmap_);
    }

private:
    struct Range {
        Color color;
        std::vector<float> outline;
    };

    float between(float low, float high) {
        random_ = scramble(random_ + 0x9e3779b9U);
        return low + (high - low) * static_cast<float>(random_ % 4096) / 4095.0F;
    }

    void drawOutline(Range& range, float level) {
        range.color = {between(20, 120), between(70, 150), between(40, 110)};
        const float bend = between(2, 5);
        const float detail = between(9, 23);
        const float start = between(0, 6);
        range.outline.resize(bitmap_.width);
        for (std::size_t x = 0; x < range.outline.size(); ++x) {
            const float place = static_cast<float>(x) / width_ * std::numbers::pi_v<float>;
            range.outline[x] = height_ * (level + 0.06F * std::sin(place * bend + start) +
                                          0.015F * std::sin(place * detail + start * 2));
        }
    }

    Color colorAt(unsigned x, unsigned y) const {
        const auto row = static_cast<float>(y);
        for (std::size_t index = ranges_.size(); index-- > 0;) {
            const float depth = row - ranges_[index].outline[x];
            if (depth > 0) {
                return mix(ranges_[index].color, {20, 40, 30}, std::min(1.0F, depth / height_ * 2));
            }
        }
        const Color sky = mix(skyTop_, skyBottom_, row / height_);
        const float away = std::hypot(static_cast<float>(x) - sunX_, row - sunY_) / sunRadius_;
        return away < 4 ? mix({255, 244, 214}, sky, std::clamp((away - 1) / 3, 0.0F, 1.0F)) : sky;
    }

    static std::uint8_t grainy(float value, std::uint32_t grain) {
        const float noisy = value + static_cast<float>(grain & 15U) - 7.5F;
        return static_cast<std::uint8_t>(std::clamp(noisy, 0.0F, 255.0F));
    }

    Bitmap bitmap_;
    float width_;
    float height_;
    std::uint32_t random_;
    Color skyTop_;
    Color skyBottom_;
    float sunX_ = 0;
    float sunY_ = 0;
    float sunRadius_ = 0;
    std::array<Range, 3> ranges_;
};

} // namespace

Bitmap Landscape::draw(unsigned width, unsigned height, std::uint32_t seed) {
    return Painter(width, height, seed).paint();
}
