#include <cmath>
#include <numbers>

#include "rda/records.h"
#include "simulator/meter/model/answers.h"

namespace meter {
namespace {

using enum Quantity;

constexpr double kVoltageArrow = 1000.0;  // longest voltage arrow
constexpr double kCurrentArrow = 760.0;   // longest current arrow, in the same unit

constexpr auto kChannelQuantities = std::to_array<Quantity>(
    {VoltageL1, VoltageL2, VoltageL3, VoltageNeutral, CurrentL1, CurrentL2, CurrentL3, CurrentNeutral});

std::string_view SymbolOf(const Register& row) {
    const std::string_view symbol = Symbol(row.quantity);
    return symbol.empty() ? row.label : symbol;
}

std::string WithUnit(const ValueText& text) { return text.value + " " + std::string(text.unit); }

double Degrees(Phasor phasor) { return std::arg(phasor) * 180.0 / std::numbers::pi; }

struct Arrow {
    std::string_view label;
    Phasor phasor;
    Unit unit;
};

/// The eight phasors of the diagram; a delta system shows its line voltages.
std::array<Arrow, kChannelCount> ArrowsOf(const Meter& meter) {
    std::array<Arrow, kChannelCount> arrows{};
    const Network& network = meter.GetNetwork();
    const bool delta = std::isnan(meter.Value(VoltageL1));
    for (std::size_t i = 0; i < kChannelCount; ++i) {
        const auto channel = static_cast<Channel>(i);
        const bool voltage = channel <= Channel::V4;
        arrows[i] = {Symbol(kChannelQuantities[i]), network.At(channel), voltage ? Unit::Volt : Unit::Ampere};
        if (delta && i < kPhaseCount)
            arrows[i] = {Symbol(At(VoltageL12, i)),
                         network.At(channel) - network.At(static_cast<Channel>((i + 1) % kPhaseCount)), Unit::Volt};
    }
    return arrows;
}

double Longest(const std::array<Arrow, kChannelCount>& arrows, Unit unit) {
    double longest = 0.0;
    for (const Arrow& arrow : arrows)
        if (arrow.unit == unit) longest = std::max(longest, std::abs(arrow.phasor));
    return longest;
}

std::string Percent(double value) { return Grouped(value, 2, Grouping::Plain) + " %"; }

double DistortionOf(const Spectrum& spectrum, std::size_t firstIndex) {
    double sum = 0.0;
    for (std::size_t i = firstIndex; i < spectrum.size(); i += 2) sum += spectrum[i] * spectrum[i];
    return std::sqrt(sum);
}

/// The smallest round percentage that no harmonic but the fundamental exceeds.
double FullScaleOf(const Spectrum& spectrum) {
    const double highest = *std::max_element(spectrum.begin() + 1, spectrum.end());
    for (double scale : {2.0, 5.0, 10.0, 20.0, 50.0})
        if (highest <= scale) return scale;
    return 100.0;
}

void PutHarmonicText(HarmonicData& data, HarmonicText place, std::string_view text) {
    PutText(data.texts[static_cast<std::size_t>(place)], text);
}

MinMaxValue BarValue(const Meter& meter, std::uint32_t id, std::string& text) {
    MinMaxValue record{};
    const Register* row = FindRegister(id);
    const auto reading = meter.Reading(id);
    if (row == nullptr || !reading || std::isnan(*reading)) return record;
    record.valid.Set(1);
    record.value.Set(*reading);
    text = WithUnit(Format(*reading, row->unit, meter.GetSettings().NumberSettings()));
    return record;
}

}  // namespace

void GetPhasorData(Meter& meter, const Request& request, std::span<std::byte> reply) {
    const auto arrows = ArrowsOf(meter);
    const double longestVoltage = Longest(arrows, Unit::Volt);
    const double longestCurrent = Longest(arrows, Unit::Ampere);
    for (std::size_t i = 0; i < std::min<std::size_t>(request.words[0], arrows.size()); ++i) {
        const Arrow& arrow = arrows[i];
        const bool voltage = arrow.unit == Unit::Volt;
        const double magnitude = std::abs(arrow.phasor);
        const double longest = voltage ? longestVoltage : longestCurrent;
        const double share = longest > 0.0 ? magnitude / longest : 0.0;
        const ValueText text = Format(magnitude, arrow.unit, meter.GetSettings().NumberSettings());
        PhasorEntry entry{};
        PutText(entry.magnitudeLabel, arrow.label);
        PutText(entry.magnitudeText, text.value);
        entry.magnitude.Set(static_cast<std::int32_t>(std::lround(share * (voltage ? kVoltageArrow : kCurrentArrow))));
        PutText(entry.angleLabel, text.unit);
        PutText(entry.angleText, Grouped(magnitude > 0.0 ? Degrees(arrow.phasor) : 0.0, 1, Grouping::Plain));
        entry.angle.Set(static_cast<std::int32_t>(std::lround(magnitude > 0.0 ? Degrees(arrow.phasor) : 0.0)));
        entry.shown.Set(magnitude > 0.0 && i % 4 != 3 ? 1 : 0);
        Put(reply, entry, i);
    }
}

void GetHarmonicData(Meter& meter, const Request& request, std::span<std::byte> reply) {
    HarmonicData data{};
    const auto channel = static_cast<Channel>(std::min<std::uint32_t>(request.words[0], kChannelCount - 1));
    const std::size_t selected = std::min<std::size_t>(request.words[1], kMaxHarmonics - 1);
    const bool voltage = channel <= Channel::V4;
    const Spectrum spectrum = meter.GetNetwork().SpectrumOf(channel);
    const Phasor fundamental = meter.GetNetwork().At(channel);
    const double scale = FullScaleOf(spectrum);
    for (std::size_t i = 0; i < kMaxHarmonics; ++i)
        data.magnitudes[i].Set(static_cast<std::uint32_t>(std::lround(spectrum[i] * 100.0)));
    data.fullScale.Set(static_cast<std::uint32_t>(std::lround(scale * 100.0)));
    data.labelChoice.Set(voltage ? 0 : 1);

    // The harmonic turns with its order: odd ones of a rectifier start against the fundamental.
    const double order = static_cast<double>(selected + 1);
    const double angle = std::remainder(Degrees(fundamental) * order + (selected == 0 ? 0.0 : 180.0), 360.0);
    const double magnitude = std::abs(fundamental) * spectrum[selected] / 100.0;
    NumberStyle style = meter.GetSettings().NumberSettings();
    style.voltageDecimals = style.currentDecimals = 2;
    PutHarmonicText(data, HarmonicText::First, Percent(meter.GetNetwork().Thd(channel)));
    PutHarmonicText(data, HarmonicText::Second, Percent(DistortionOf(spectrum, 1)));
    PutHarmonicText(data, HarmonicText::Third, Percent(DistortionOf(spectrum, 2)));
    PutHarmonicText(data, HarmonicText::Fourth,
                    WithUnit(Format(magnitude, voltage ? Unit::Volt : Unit::Ampere, style)));
    PutHarmonicText(data, HarmonicText::FourthInParentheses, Percent(spectrum[selected]));
    PutHarmonicText(data, HarmonicText::Fifth, Grouped(angle, 1, Grouping::Plain) + "\xB0");
    PutHarmonicText(data, HarmonicText::AxisTop, Grouped(scale, 0, Grouping::Plain) + " %");
    PutHarmonicText(data, HarmonicText::AxisMiddle, Grouped(scale / 2, scale == 5.0 ? 1 : 0, Grouping::Plain) + " %");
    PutHarmonicText(data, HarmonicText::AxisBottom, "0 %");
    Put(reply, data);
}

void GetMinMaxBarData(Meter& meter, const Request& request, std::span<std::byte> reply) {
    MinMaxBarData data{};
    std::array<std::string, 3> texts;
    data.minimum = BarValue(meter, request.words[0], texts[0]);
    data.maximum = BarValue(meter, request.words[1], texts[1]);
    data.present = BarValue(meter, request.words[2], texts[2]);
    PutText(data.minimumText, texts[0]);
    PutText(data.maximumText, texts[1]);
    PutText(data.presentText, texts[2]);
    if (const Register* row = FindRegister(request.words[2])) PutText(data.label, SymbolOf(*row));
    Put(reply, data);
}

}  // namespace meter
