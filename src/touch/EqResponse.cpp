#include "touch/EqResponse.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lumbra {

namespace {

/// Numerator b0 to b2, denominator a0 to a2.
struct Biquad {
    double b0, b1, b2, a0, a1, a2;
};

Biquad biquadOf(const EqResponse::Band& band) {
    using Type = EqResponse::Type;
    const double w0 = 2 * std::numbers::pi * band.frequency / EqResponse::SAMPLE_RATE;
    const double cosine = std::cos(w0);
    const double sine = std::sin(w0);
    const double a = std::pow(10, band.gain / 40);
    const double passAlpha = sine / (2 * EqResponse::PASS_Q);
    const double shelfAlpha = sine / 2 * std::sqrt((a + 1 / a) * (1 / EqResponse::SHELF_SLOPE - 1) + 2);
    const double shelf = 2 * std::sqrt(a) * shelfAlpha;
    const double peakAlpha =
        sine * std::sinh(std::numbers::ln2 / 2 * EqResponse::PARAMETRIC_OCTAVES * w0 / sine);
    switch (band.type) {
    case Type::HighPass:
        return {(1 + cosine) / 2, -(1 + cosine), (1 + cosine) / 2, 1 + passAlpha, -2 * cosine, 1 - passAlpha};
    case Type::LowPass:
        return {(1 - cosine) / 2, 1 - cosine, (1 - cosine) / 2, 1 + passAlpha, -2 * cosine, 1 - passAlpha};
    case Type::HighShelf:
        return {a * ((a + 1) + (a - 1) * cosine + shelf), -2 * a * ((a - 1) + (a + 1) * cosine),
                a * ((a + 1) + (a - 1) * cosine - shelf), (a + 1) - (a - 1) * cosine + shelf,
                2 * ((a - 1) - (a + 1) * cosine),         (a + 1) - (a - 1) * cosine - shelf};
    case Type::LowShelf:
        return {a * ((a + 1) - (a - 1) * cosine + shelf), 2 * a * ((a - 1) - (a + 1) * cosine),
                a * ((a + 1) - (a - 1) * cosine - shelf), (a + 1) + (a - 1) * cosine + shelf,
                -2 * ((a - 1) + (a + 1) * cosine),        (a + 1) + (a - 1) * cosine - shelf};
    case Type::Parametric:
        return {1 + peakAlpha * a, -2 * cosine, 1 - peakAlpha * a,
                1 + peakAlpha / a, -2 * cosine, 1 - peakAlpha / a};
    case Type::Bypass:
        break;
    }
    return {1, 0, 0, 1, 0, 0};
}

/// The squared magnitude of c0 + c1 z^-1 + c2 z^-2, where `phi` is the squared sine of half the angle. This
/// form by the cookbook's author stays accurate at low frequencies.
double squared(double c0, double c1, double c2, double phi) {
    const double sum = c0 + c1 + c2;
    return sum * sum - 4 * (c0 * c1 + 4 * c0 * c2 + c1 * c2) * phi + 16 * c0 * c2 * phi * phi;
}

double phiAt(double frequency) {
    const double sine = std::sin(std::numbers::pi * frequency / EqResponse::SAMPLE_RATE);
    return sine * sine;
}

double decibelsAt(const Biquad& q, double phi) {
    return 10 * std::log10(squared(q.b0, q.b1, q.b2, phi) / squared(q.a0, q.a1, q.a2, phi));
}

const std::array<double, EqResponse::POINTS>& phis() {
    static const auto table = [] {
        std::array<double, EqResponse::POINTS> filled{};
        for (std::size_t point = 0; point < filled.size(); ++point)
            filled[point] = phiAt(EqResponse::frequencyAt(point));
        return filled;
    }();
    return table;
}

} // namespace

EqResponse::EqResponse() = default;

double EqResponse::frequencyAt(std::size_t point) {
    return MIN_FREQUENCY * std::pow(MAX_FREQUENCY / MIN_FREQUENCY,
                                    static_cast<double>(point) / static_cast<double>(POINTS - 1));
}

double EqResponse::decibels(const Band& band, double frequency) {
    return decibelsAt(biquadOf(band), phiAt(frequency));
}

bool EqResponse::setBand(std::size_t index, const Band& band) {
    auto& section = bands_[index];
    if (section.band == band)
        return false;
    section.band = band;
    const Biquad biquad = biquadOf(band);
    const auto& table = phis();
    for (std::size_t point = 0; point < POINTS; ++point)
        section.decibels[point] = decibelsAt(biquad, table[point]);
    addUp();
    return true;
}

EqResponse::Extreme EqResponse::highest() const {
    const auto* const found = std::max_element(sum_.begin(), sum_.end());
    return {static_cast<std::size_t>(found - sum_.begin()), *found};
}

EqResponse::Extreme EqResponse::lowest() const {
    const auto* const found = std::min_element(sum_.begin(), sum_.end());
    return {static_cast<std::size_t>(found - sum_.begin()), *found};
}

void EqResponse::addUp() {
    sum_.fill(0);
    for (const auto& section : bands_)
        for (std::size_t point = 0; point < POINTS; ++point)
            sum_[point] += section.decibels[point];
}

} // namespace lumbra
