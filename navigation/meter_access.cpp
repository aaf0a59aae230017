#include "navigation/meter_access.h"

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

int meterAccessClass::readHwLockStatus(std::uint32_t& status) {
    return Fetch(status, SECURITYINTERFACE_getHwLockStatus);
}
