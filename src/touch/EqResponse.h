#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumbra {

/// The magnitude response of an equaliser of seven second-order sections, from 20 Hz to 20 kHz. Not
/// thread-safe.
///
/// The sections are those of Robert Bristow-Johnson's "Cookbook formulae for audio equalizer biquad filter
/// coefficients" (https://www.w3.org/TR/audio-eq-cookbook/). The bandwidths of the unit are not known: the
/// values below are assumptions, so the response is approximate.
class EqResponse {
public:
    static constexpr std::size_t BANDS = 7;
    /// Points of a curve, evenly spaced on the logarithmic axis.
    static constexpr std::size_t POINTS = 256;
    static constexpr double MIN_FREQUENCY = 20;
    static constexpr double MAX_FREQUENCY = 20'000;

    // Assumptions about the unit.
    static constexpr double SAMPLE_RATE = 48'000;
    static constexpr double PASS_Q = 0.70710678118654752; ///< high-pass and low-pass: no resonance
    static constexpr double SHELF_SLOPE = 1;              ///< the steepest without overshoot
    static constexpr double PARAMETRIC_OCTAVES = 1;       ///< between the half-gain frequencies

    /// In the order of the segments of the type control.
    enum class Type : std::uint8_t { Bypass, HighPass, HighShelf, LowPass, LowShelf, Parametric };

    struct Band {
        Type type;
        double frequency; ///< Hz, 20 to 20,000
        double gain;      ///< dB; high-pass and low-pass have none

        bool operator==(const Band&) const = default;
    };
    /// The gain at each point, in dB.
    using Curve = std::array<double, POINTS>;

    EqResponse();

    /// Sets band `index` (0-based). Returns false and computes nothing if the band is unchanged.
    bool setBand(std::size_t index, const Band& band);
    const Curve& band(std::size_t index) const { return bands_[index].decibels; }
    const Curve& sum() const { return sum_; }

    struct Extreme {
        std::size_t point;
        double decibels;
    };
    /// The highest and the lowest point of the sum; of equal ones the first.
    Extreme highest() const;
    Extreme lowest() const;

    /// The frequency of a point, in Hz.
    static double frequencyAt(std::size_t point);
    /// The gain of a band at `frequency` Hz, in dB.
    static double decibels(const Band& band, double frequency);

private:
    struct Section {
        Band band{};
        Curve decibels{};
    };
    void addUp();

    std::array<Section, BANDS> bands_;
    Curve sum_{};
};

} // namespace lumbra
