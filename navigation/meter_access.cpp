#include "navigation/meter_access.h"

#include <algorithm>

#include "localization/localization.h"

namespace {

constexpr int kFailuresOfLostConnection = 6;

/// Makes a call that fills one record; after a failure the record is all zero.
template <typename Record, typename Call>
int Fetch(Record& out, Call call) {
    out = Record{};
    if (call(out) == 0) return 0;
    out = Record{};
    return -1;
}

/// The longest text of an extreme that is shown.
constexpr std::size_t kLongestExtreme = 44;

MinMaxDisplayValue DisplayOf(const MinMaxValue& value, std::uint32_t valid, std::string_view text) {
    MinMaxDisplayValue display;
    display.valid = valid;
    display.value = value.value.Get();
    WidenInto(text, display.text);
    return display;
}

}  // namespace

meterAccessClass& meterAccessClass::getInstance() {
    static meterAccessClass instance;
    return instance;
}

std::uint32_t meterAccessClass::getAltMode() {
    std::uint32_t mode = 0;
    static_cast<void>(Fetch(mode, DISPLAYMODE_getAltMode));
    return mode;
}

std::uint32_t meterAccessClass::getTestMode() {
    std::uint32_t mode = 0;
    static_cast<void>(Fetch(mode, DISPLAYMODE_getTestMode));
    return mode;
}

std::int32_t meterAccessClass::setAltMode(std::uint32_t value) {
    std::uint32_t result = 0;
    return DISPLAYMODE_setAltMode(value, result) == 0 ? static_cast<std::int32_t>(result) : -1;
}

std::int32_t meterAccessClass::setTestMode(std::uint32_t value) {
    std::uint32_t result = 0;
    return DISPLAYMODE_setTestMode(value, result) == 0 ? static_cast<std::int32_t>(result) : -1;
}

void meterAccessClass::keepAlive() { static_cast<void>(DISPTASK_nop()); }

bool meterAccessClass::isSameMeterConnection() {
    std::uint32_t id = 0;
    if (DISPTSK_getConnectionId(id) != 0) {
        if (++m_connectionFailures < kFailuresOfLostConnection) return true;
        m_connectionFailures = 0;
        return false;
    }
    m_connectionFailures = 0;
    const bool same = !m_connectionKnown || id == m_connectionId;
    m_connectionKnown = true;
    m_connectionId = id;
    return same;
}

int meterAccessClass::readRegister(std::uint32_t registerId, RegisterDisplay& out) {
    out = RegisterDisplay{};
    RegisterValue raw{};
    if (readRegisterRaw(registerId, raw) != 0) return -1;
    displayClass& texts = displayClass::getInstance();
    texts.translateInto(TextIn(raw.label), out.label);
    WidenInto(TextIn(raw.value), out.value);
    texts.translateInto(TextIn(raw.unit), out.unit);
    WidenInto(TextIn(raw.date), out.date);
    WidenInto(TextIn(raw.time), out.time);
    return 0;
}

int meterAccessClass::readRegisterRaw(std::uint32_t registerId, RegisterValue& out) {
    return Fetch(out,
                 [registerId](RegisterValue& record) { return PDMINTERFACE_getRegisterValue(registerId, record); });
}

int meterAccessClass::readDateTime(DateTimeStrings& out) {
    return Fetch(out, DATETIMEINTERFACE_getLocalDateTimeStrings);
}

int meterAccessClass::readSelection(std::uint32_t registerId, std::uint32_t& selected) {
    EnumerationValue value{};
    if (PDMINTERFACE_getEnumerationValue(registerId, value) != 0 || value.result.Get() != 0) return -1;
    selected = value.current.Get();
    return 0;
}

int meterAccessClass::readEnumeration(std::uint32_t registerId, EnumerationData& out) {
    return Fetch(out, [registerId](EnumerationData& record) {
        if (PDMINTERFACE_getEnumerationData(registerId, record) != 0) return -1;
        return record.result.Get() == 0 ? 0 : -1;
    });
}

int meterAccessClass::readPhasors(std::span<PhasorDisplay, kPhasors> out) {
    std::ranges::fill(out, PhasorDisplay{});
    std::array<PhasorEntry, kPhasors> phasors{};
    if (PQINTERFACE_getPhasorData(phasors) != 0) return -1;
    displayClass& texts = displayClass::getInstance();
    for (std::size_t i = 0; i < phasors.size(); ++i) {
        const PhasorEntry& phasor = phasors[i];
        texts.translateInto(TextIn(phasor.magnitudeLabel), out[i].magnitudeLabel);
        WidenInto(TextIn(phasor.magnitudeText), out[i].magnitudeText);
        out[i].magnitude = phasor.magnitude.Get();
        texts.translateInto(TextIn(phasor.angleLabel), out[i].angleLabel);
        WidenInto(TextIn(phasor.angleText), out[i].angleText);
        out[i].angle = phasor.angle.Get();
        out[i].shown = phasor.shown.Get();
    }
    return 0;
}

int meterAccessClass::readHarmonics(std::uint32_t channel, std::uint32_t harmonic, HarmonicDisplay& out) {
    out = HarmonicDisplay{};
    HarmonicData data{};
    if (PQINTERFACE_getHarmonicData(channel, harmonic, data) != 0) return -1;
    std::ranges::transform(data.magnitudes, out.magnitudes.begin(), &WireU32::Get);
    out.fullScale = data.fullScale.Get();
    out.labelChoice = data.labelChoice.Get();
    for (std::size_t i = 0; i < data.texts.size(); ++i) WidenInto(TextIn(data.texts[i]), out.texts[i]);
    return 0;
}

int meterAccessClass::readMinMaxBar(std::uint32_t minimumId, std::uint32_t maximumId, std::uint32_t presentId,
                                    MinMaxBarDisplay& out) {
    out = MinMaxBarDisplay{};
    MinMaxBarData data{};
    if (PQINTERFACE_getMinMaxBarData(minimumId, maximumId, presentId, data) != 0) return -1;
    const std::uint32_t valid = data.minimum.valid.Get();
    out.minimum = DisplayOf(data.minimum, valid, TextIn(data.minimumText).substr(0, kLongestExtreme));
    out.maximum = DisplayOf(data.maximum, valid, TextIn(data.maximumText).substr(0, kLongestExtreme));
    out.present = DisplayOf(data.present, data.present.valid.Get(), TextIn(data.presentText));
    displayClass::getInstance().translateInto(TextIn(data.label), out.label);
    return 0;
}

int meterAccessClass::readHwLockStatus(std::uint32_t& status) {
    return Fetch(status, SECURITYINTERFACE_getHwLockStatus);
}
