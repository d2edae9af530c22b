#include "platform/readablecolour.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr qreal kLeastContrast = 4.5;
constexpr int kMixingSteps = 50;

qreal luminance(const QColor& colour) {
    const auto linear = [](qreal channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = colour.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) +
           0.0722 * linear(rgb.blueF());
}

}  // namespace

qreal contrastRatio(const QColor& first, const QColor& second) {
    const qreal a = luminance(first);
    const qreal b = luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor readableOn(const QColor& colour, const QColor& background) {
    const bool dark = contrastRatio(Qt::white, background) > contrastRatio(Qt::black, background);
    if (!dark) return colour;
    const QColor rgb = colour.toRgb();
    QColor mixed = rgb;
    for (int step = 1; step <= kMixingSteps && contrastRatio(mixed, background) < kLeastContrast;
         ++step) {
        const qreal white = qreal(step) / kMixingSteps;
        const auto towardWhite = [white](qreal channel) { return channel + (1 - channel) * white; };
        mixed.setRgbF(towardWhite(rgb.redF()), towardWhite(rgb.greenF()), towardWhite(rgb.blueF()));
    }
    return mixed;
}
