#include "simulator/meter/model/catalogue.h"

#include <algorithm>
#include <array>

// clang-format off
// What each screen shows. "min" and "max" name the screens with date and time, "bars" those with both and the present.
//
//   screens                                    shows                                      registers
//   4                                          voltage, current, energy, power factor     3708 (3687) 298 1890 2055
//   11, 19; min 20, max 21; bars 22, 23        voltages to neutral, their average         3705 3711 3714, 3708
//   12, 14; min 15, max 16; bars 17, 18, 5     voltages between lines, their average      3681 3693 3699, 3687
//   13; bars 24                                neutral-to-earth voltage                   2675
//   25; min 27, 31, max 28, 30; bars 29, 32    currents L1 L2 L3 N                        284 312 326 273
//   26; bars 33, 6                             average current                            298
//   34; max 39, min 38; bars 40                active, reactive, apparent power           1872 1707 1542
//   35, 36, 37                                 the same of L1, L2, L3                     1749 1584 1419 ...
//   41; min 43, max 42                         power factor; extremes lagging, leading    2055 2052 2053 2054
//   44; bars 45                                frequency                                  204
//   46, 47, 48                                 energy: in plus out, imported, exported    1890 1878 1900 ...
//   49, 50                                     imported energy of tariffs A B, C D        1880 1882, 1884 1886
//   51; peaks 53, 54, 55                       block demand; in and out, before reset     1780, 1807 1808 1810 ...
//   52; peaks 56, 57, 58                       thermal demand, likewise                   1842, 1816 1817 1819 ...
//   59 (spectra 61-63), 60 (64-67)             harmonic distortion, voltages, currents    3008 ..., 640 ...
//   71, statistics 83                          voltage quality: frequency                 200 2366 2367 2368, 210 ...
//   72                                         voltage quality: nominal voltage           2658
//   73-75, statistics 84-86                    voltage quality: magnitude L1 L2 L3        2372 2373 2374, 2989 ...
//   76, statistics 87                          voltage quality: unbalance                 1942, 3719 ...
//   77-79, statistics 88-90                    voltage quality: harmonics L1 L2 L3        2383 2384 2385, 2970 ...
//   80-82, values 91-93                        voltage quality: flicker L1 L2 L3          2378 2379, 2714 ...
//   100, 103, 110, 117, 126                    wiring, transformers, polarities, nominals 3717 2461 3676 1358 2658
//   130, 132 or 136, 139, 137, 140 or 141      IPv4 mode, addresses, link-local, IPv6     1409 2590 26 1412 1410 2594
//   142, 143, 144, 151, 157, 167, 168          names, DNS, COM1-COM3, NTP, mail           198 2430 94 101 106 1947
//   169, 170, 171                              backlight, labels and symbols, formats     54 2062 166
//   179, 181, 182, 192, 193, 194, 198          language, date/time, tariff, resets, services
// clang-format on
namespace meter {
namespace {

using enum Quantity;

constexpr auto kWirings = std::to_array<std::string_view>({"4W-WYE", "3W-WYE", "DELTA", "SINGLE"});
constexpr auto kPhaseOrders = std::to_array<std::string_view>({"L1-L2-L3", "L3-L2-L1"});
constexpr auto kPolarities = std::to_array<std::string_view>({"Normal", "Inverted"});
constexpr auto kHarmonicCounts = std::to_array<std::string_view>({"31", "63"});
constexpr auto kFrequencies = std::to_array<std::string_view>({"50", "60"});
constexpr auto kIpModes = std::to_array<std::string_view>({"Stored", "DHCP", "BOOTP"});
constexpr auto kIpv6Modes = std::to_array<std::string_view>({"Stored", "Automatic"});
constexpr auto kProtocols =
    std::to_array<std::string_view>({"Modbus RTU", "DNP 3.0", "Modbus master", "GPS", "Factory"});
constexpr auto kBaudRates =
    std::to_array<std::string_view>({"1200", "2400", "4800", "9600", "19200", "38400", "57600"});
constexpr auto kParities = std::to_array<std::string_view>({"8N1", "8N2", "8E1", "8O1"});
constexpr auto kLineModes = std::to_array<std::string_view>({"RS-232", "RS-485"});
constexpr auto kPhaseLabelSets = std::to_array<std::string_view>({"1, 2, 3", "A, B, C", "R, S, T"});
constexpr auto kSymbolSets = std::to_array<std::string_view>({"IEC", "ANSI"});
constexpr auto kPowerFactorSigns = std::to_array<std::string_view>({"IEC", "IEEE"});
constexpr auto kDigitGroupings = std::to_array<std::string_view>({"1000.0", "1 000.0", "1,000.0", "1.000,0"});
constexpr auto kDecimals = std::to_array<std::string_view>({"0", "1", "2", "3"});
constexpr auto kTimeFormats = std::to_array<std::string_view>({"24 h", "12 h"});
constexpr auto kDateFormats = std::to_array<std::string_view>({"YYYY-MM-DD", "DD.MM.YYYY", "DD/MM/YYYY", "MM/DD/YYYY"});
constexpr auto kClockSources = std::to_array<std::string_view>({"Internal", "Line frequency", "Communications"});
constexpr auto kSyncSources = std::to_array<std::string_view>({"Ethernet", "COM1", "COM2", "IRIG-B"});
constexpr auto kSyncTypes = std::to_array<std::string_view>({"UTC", "Local time"});
constexpr auto kLanguages =
    std::to_array<std::string_view>({"English", "German", "French", "Spanish", "Italian", "Russian"});

constexpr Register Reading(std::uint16_t id, std::string_view label, Unit unit, Quantity quantity,
                           Aspect aspect = Aspect::Now) {
    return {.id = id, .kind = Kind::Reading, .label = label, .unit = unit, .quantity = quantity, .aspect = aspect};
}
constexpr Register Choice(std::uint16_t id, std::string_view label, Items items, std::string_view preset) {
    return {.id = id, .kind = Kind::Choice, .label = label, .preset = preset, .items = items};
}
constexpr Register Number(std::uint16_t id, std::string_view label, Unit unit, std::string_view preset, double low,
                          double high, std::uint8_t decimals) {
    return {.id = id,
            .kind = Kind::Number,
            .label = label,
            .unit = unit,
            .preset = preset,
            .low = low,
            .high = high,
            .decimals = decimals};
}
constexpr Register Seconds(std::uint16_t id, std::string_view label, std::string_view preset, double low, double high) {
    return {.id = id, .kind = Kind::Seconds, .label = label, .preset = preset, .low = low, .high = high};
}
constexpr Register Address(std::uint16_t id, std::string_view label, std::string_view preset) {
    return {.id = id, .kind = Kind::Address, .label = label, .preset = preset};
}
constexpr Register YesNo(std::uint16_t id, std::string_view label, std::string_view preset) {
    return {.id = id, .kind = Kind::YesNo, .label = label, .preset = preset};
}
constexpr Register ReadOnly(std::uint16_t id, std::string_view label, std::string_view preset) {
    return {.id = id, .kind = Kind::ReadOnlyText, .label = label, .preset = preset};
}
constexpr Register Reset(std::uint16_t id, std::string_view label, ResetScope scope) {
    return {.id = id, .kind = Kind::Reset, .label = label, .reset = scope};
}

// clang-format off
constexpr auto kCatalogue = std::to_array<Register>({
    ReadOnly(26, "IP address", "10.20.4.117"),
    ReadOnly(27, "Gateway", "10.20.0.1"),
    ReadOnly(28, "Subnet mask", "255.255.0.0"),
    ReadOnly(29, "IPv6 gateway", "2001:db8:20::1"),
    ReadOnly(30, "IPv6 address", "2001:db8:20::4a7e"),
    Number(54, "Backlight timeout", Unit::None, "300", 0, 9999, 0),
    Choice(78, "Clock source", kClockSources, "Internal"),
    Choice(93, "COM1 baud rate", kBaudRates, "19200"),
    Choice(94, "COM1 protocol", kProtocols, "Modbus RTU"),
    Choice(95, "COM1 mode", kLineModes, "RS-485"),
    Number(97, "COM1 delay", Unit::None, "0.010", 0, 1, 3),
    Choice(98, "COM1 parity", kParities, "8E1"),
    Number(99, "COM1 unit ID", Unit::None, "100", 1, 9999, 0),
    Choice(100, "COM2 baud rate", kBaudRates, "9600"),
    Choice(101, "COM2 protocol", kProtocols, "Modbus RTU"),
    Number(103, "COM2 delay", Unit::None, "0.010", 0, 1, 3),
    Choice(104, "COM2 parity", kParities, "8N1"),
    Number(105, "COM2 unit ID", Unit::None, "101", 1, 9999, 0),
    Choice(106, "COM3 protocol", kProtocols, "Factory"),
    Number(108, "COM3 unit ID", Unit::None, "102", 1, 9999, 0),
    Number(111, "CT primary", Unit::Ampere, "400.00", 1, 99999.99, 2),
    Number(112, "CT secondary", Unit::Ampere, "5.00", 1, 10, 2),
    Choice(113, "Current decimals", kDecimals, "1"),
    Number(114, "Custom scroll", Unit::None, "10", 0, 60, 0),
    Choice(145, "Date format", kDateFormats, "YYYY-MM-DD"),
    Choice(166, "Digit grouping", kDigitGroupings, "1000.0"),
    Reset(167, "Input counters", ResetScope::InputCounters),
    Reset(169, "Disturbances", ResetScope::Disturbances),
    ReadOnly(172, "Domain name", "plant.example"),
    Seconds(177, "DST offset", "3600", -7200, 7200),
    Reset(178, "Energy", ResetScope::Energy),
    YesNo(180, "Web server", "Yes"),
    YesNo(181, "Modbus TCP", "Yes"),
    YesNo(182, "Modbus gateway", "No"),
    YesNo(184, "DNP3 server", "No"),
    YesNo(185, "IEC 61850 server", "No"),
    YesNo(188, "SNMP agent", "No"),
    YesNo(189, "SSH access", "No"),
    YesNo(191, "NTP client", "Yes"),
    YesNo(192, "FTP server", "No"),
    YesNo(193, "Telnet access", "No"),
    YesNo(194, "E-mail client", "No"),
    YesNo(196, "Device discovery", "Yes"),
    YesNo(197, "Syslog client", "No"),
    ReadOnly(198, "Device name", "meter-4a7e"),
    Reading(200, "Frequency", Unit::Hertz, Frequency),
    Reading(204, "Frequency", Unit::Hertz, Frequency),
    Reading(208, "Frequency", Unit::Hertz, Frequency, Aspect::Minimum),
    Reading(209, "Frequency", Unit::Hertz, Frequency, Aspect::Maximum),
    Reading(210, "Mean", Unit::Hertz, Frequency, Aspect::Mean),
    Reading(211, "Deviation", Unit::Hertz, Frequency, Aspect::Deviation),
    Reading(212, "Minimum", Unit::Hertz, Frequency, Aspect::Minimum),
    Reading(214, "Maximum", Unit::Hertz, Frequency, Aspect::Maximum),
    Reset(228, "Harmonics min/max", ResetScope::Harmonics),
    Reading(273, "Neutral current", Unit::Ampere, CurrentNeutral),
    Reading(284, "Current L1", Unit::Ampere, CurrentL1),
    Reading(289, "Current L1", Unit::Ampere, CurrentL1, Aspect::Minimum),
    Reading(290, "Current L1", Unit::Ampere, CurrentL1, Aspect::Maximum),
    Reading(298, "Average current", Unit::Ampere, CurrentAverage),
    Reading(303, "Average current", Unit::Ampere, CurrentAverage, Aspect::Minimum),
    Reading(304, "Average current", Unit::Ampere, CurrentAverage, Aspect::Maximum),
    Reading(312, "Current L2", Unit::Ampere, CurrentL2),
    Reading(317, "Current L2", Unit::Ampere, CurrentL2, Aspect::Minimum),
    Reading(318, "Current L2", Unit::Ampere, CurrentL2, Aspect::Maximum),
    Reading(326, "Current L3", Unit::Ampere, CurrentL3),
    Reading(331, "Current L3", Unit::Ampere, CurrentL3, Aspect::Minimum),
    Reading(332, "Current L3", Unit::Ampere, CurrentL3, Aspect::Maximum),
    Number(354, "Nominal current", Unit::Ampere, "250.00", 1, 99999.99, 2),
    Reading(640, "THD current L1", Unit::Percent, ThdCurrentL1),
    Reading(922, "THD current L2", Unit::Percent, ThdCurrentL2),
    Reading(1204, "THD current L3", Unit::Percent, ThdCurrentL3),
    Number(1215, "Neutral CT prim.", Unit::Ampere, "400.00", 1, 99999.99, 2),
    Number(1216, "Neutral CT sec.", Unit::Ampere, "5.00", 1, 10, 2),
    Reading(1345, "Neutral current", Unit::Ampere, CurrentNeutral, Aspect::Minimum),
    Reading(1346, "Neutral current", Unit::Ampere, CurrentNeutral, Aspect::Maximum),
    Choice(1347, "Polarity I4", kPolarities, "Normal"),
    Choice(1358, "Polarity I1", kPolarities, "Normal"),
    Choice(1359, "Polarity I2", kPolarities, "Normal"),
    Choice(1360, "Polarity I3", kPolarities, "Normal"),
    Choice(1409, "IPv4 mode", kIpModes, "Stored"),
    Choice(1410, "IPv6 mode", kIpv6Modes, "Stored"),
    ReadOnly(1412, "Link-local address", "fe80::21b:c5ff:fe09:4a7e"),
    Reading(1419, "Apparent pow. L1", Unit::VoltAmpere, ApparentL1),
    Reading(1420, "Apparent pow. L2", Unit::VoltAmpere, ApparentL2),
    Reading(1421, "Apparent pow. L3", Unit::VoltAmpere, ApparentL3),
    Reading(1450, "Apparent demand", Unit::VoltAmpere, BlockApparent),
    Reading(1477, "Apparent demand", Unit::VoltAmpere, BlockApparent, Aspect::Maximum),
    Reading(1486, "Apparent demand", Unit::VoltAmpere, ThermalApparent, Aspect::Maximum),
    Reading(1512, "Apparent demand", Unit::VoltAmpere, ThermalApparent),
    Reading(1542, "Apparent power", Unit::VoltAmpere, ApparentTotal),
    Reading(1546, "Apparent power", Unit::VoltAmpere, ApparentTotal, Aspect::Minimum),
    Reading(1547, "Apparent power", Unit::VoltAmpere, ApparentTotal, Aspect::Maximum),
    Reading(1548, "Apparent import", Unit::VoltAmpereHour, ApparentEnergyIn),
    Reading(1560, "Apparent energy", Unit::VoltAmpereHour, ApparentEnergyTotal),
    Reading(1570, "Apparent export", Unit::VoltAmpereHour, ApparentEnergyOut),
    Reading(1584, "Reactive pow. L1", Unit::Var, ReactiveL1),
    Reading(1585, "Reactive pow. L2", Unit::Var, ReactiveL2),
    Reading(1586, "Reactive pow. L3", Unit::Var, ReactiveL3),
    Reading(1615, "Reactive demand", Unit::Var, BlockReactive),
    Reading(1646, "Reactive demand", Unit::Var, BlockReactive, Aspect::Maximum),
    Reading(1655, "Reactive demand", Unit::Var, ThermalReactive, Aspect::Maximum),
    Reading(1677, "Reactive demand", Unit::Var, ThermalReactive),
    Reading(1707, "Reactive power", Unit::Var, ReactiveTotal),
    Reading(1711, "Reactive power", Unit::Var, ReactiveTotal, Aspect::Minimum),
    Reading(1712, "Reactive power", Unit::Var, ReactiveTotal, Aspect::Maximum),
    Reading(1713, "Reactive import", Unit::VarHour, ReactiveEnergyIn),
    Reading(1725, "Reactive energy", Unit::VarHour, ReactiveEnergyTotal),
    Reading(1735, "Reactive export", Unit::VarHour, ReactiveEnergyOut),
    Reading(1749, "Active power L1", Unit::Watt, ActiveL1),
    Reading(1750, "Active power L2", Unit::Watt, ActiveL2),
    Reading(1751, "Active power L3", Unit::Watt, ActiveL3),
    Reading(1780, "Active demand", Unit::Watt, BlockActive),
    Reading(1807, "Active demand", Unit::Watt, BlockActive, Aspect::Maximum),
    Reading(1808, "Import demand", Unit::Watt, BlockImport, Aspect::Maximum),
    Reading(1809, "Export demand", Unit::Watt, BlockExport, Aspect::Maximum),
    Reading(1810, "Import demand", Unit::Watt, BlockImport, Aspect::PreviousMaximum),
    Reading(1811, "Export demand", Unit::Watt, BlockExport, Aspect::PreviousMaximum),
    Reading(1816, "Active demand", Unit::Watt, ThermalActive, Aspect::Maximum),
    Reading(1817, "Import demand", Unit::Watt, ThermalImport, Aspect::Maximum),
    Reading(1818, "Export demand", Unit::Watt, ThermalExport, Aspect::Maximum),
    Reading(1819, "Import demand", Unit::Watt, ThermalImport, Aspect::PreviousMaximum),
    Reading(1820, "Export demand", Unit::Watt, ThermalExport, Aspect::PreviousMaximum),
    Reading(1842, "Active demand", Unit::Watt, ThermalActive),
    Reading(1872, "Active power", Unit::Watt, ActiveTotal),
    Reading(1876, "Active power", Unit::Watt, ActiveTotal, Aspect::Minimum),
    Reading(1877, "Active power", Unit::Watt, ActiveTotal, Aspect::Maximum),
    Reading(1878, "Active import", Unit::WattHour, ActiveEnergyIn),
    Reading(1880, "Energy tariff A", Unit::WattHour, TariffA),
    Reading(1882, "Energy tariff B", Unit::WattHour, TariffB),
    Reading(1884, "Energy tariff C", Unit::WattHour, TariffC),
    Reading(1886, "Energy tariff D", Unit::WattHour, TariffD),
    Reading(1890, "Active energy", Unit::WattHour, ActiveEnergyTotal),
    Reading(1900, "Active export", Unit::WattHour, ActiveEnergyOut),
    Choice(1914, "Language", kLanguages, "English"),
    ReadOnly(1916, "MAC address", "00:1B:C5:09:4A:7E"),
    Reset(1917, "Master reset", ResetScope::Everything),
    Choice(1919, "Symbols", kSymbolSets, "IEC"),
    Reset(1922, "Min/max", ResetScope::Extremes),
    Reading(1942, "Voltage unbalance", Unit::Percent, Unbalance),
    Choice(1945, "Nominal frequency", kFrequencies, "50"),
    Number(1946, "Normal scroll", Unit::None, "10", 0, 60, 0),
    ReadOnly(1947, "NTP server", "192.168.1.5"),
    Reset(1969, "Operating time", ResetScope::OnTime),
    Reset(2031, "Peak demand", ResetScope::PeakDemand),
    Choice(2033, "PF sign", kPowerFactorSigns, "IEC"),
    Reading(2040, "PF leading", Unit::None, PowerFactorLeading, Aspect::Minimum),
    Reading(2041, "PF leading", Unit::None, PowerFactorLeading, Aspect::Maximum),
    Reading(2049, "PF lagging", Unit::None, PowerFactorLagging, Aspect::Minimum),
    Reading(2050, "PF lagging", Unit::None, PowerFactorLagging, Aspect::Maximum),
    Reading(2052, "Power factor L1", Unit::None, PowerFactorL1),
    Reading(2053, "Power factor L2", Unit::None, PowerFactorL2),
    Reading(2054, "Power factor L3", Unit::None, PowerFactorL3),
    Reading(2055, "Power factor", Unit::None, PowerFactorTotal),
    Choice(2062, "Phase labels", kPhaseLabelSets, "1, 2, 3"),
    Choice(2063, "Phase order", kPhaseOrders, "L1-L2-L3"),
    Choice(2364, "Power decimals", kDecimals, "2"),
    Reading(2366, "Intervals", Unit::Count, FrequencyIntervals),
    Reading(2367, "Outside 1 %", Unit::Count, FrequencyOutsideNarrow),
    Reading(2368, "Outside 4/6 %", Unit::Count, FrequencyOutsideWide),
    Reading(2372, "Intervals", Unit::Count, MagnitudeIntervalsL1),
    Reading(2373, "Outside 10 %", Unit::Count, MagnitudeOutsideNarrowL1),
    Reading(2374, "Outside 10/15 %", Unit::Count, MagnitudeOutsideWideL1),
    Reading(2378, "Intervals", Unit::Count, FlickerIntervalsL1),
    Reading(2379, "Plt above 1", Unit::Count, FlickerOutsideL1),
    Reading(2383, "Intervals", Unit::Count, HarmonicIntervalsL1),
    Reading(2384, "THD above 8 %", Unit::Count, HarmonicOutsideNarrowL1),
    Reading(2385, "Order too high", Unit::Count, HarmonicOutsideWideL1),
    Reading(2391, "Intervals", Unit::Count, MagnitudeIntervalsL2),
    Reading(2392, "Outside 10 %", Unit::Count, MagnitudeOutsideNarrowL2),
    Reading(2393, "Outside 10/15 %", Unit::Count, MagnitudeOutsideWideL2),
    Reading(2397, "Intervals", Unit::Count, FlickerIntervalsL2),
    Reading(2398, "Plt above 1", Unit::Count, FlickerOutsideL2),
    Reading(2402, "Intervals", Unit::Count, HarmonicIntervalsL2),
    Reading(2403, "THD above 8 %", Unit::Count, HarmonicOutsideNarrowL2),
    Reading(2404, "Order too high", Unit::Count, HarmonicOutsideWideL2),
    Reading(2410, "Intervals", Unit::Count, MagnitudeIntervalsL3),
    Reading(2411, "Outside 10 %", Unit::Count, MagnitudeOutsideNarrowL3),
    Reading(2412, "Outside 10/15 %", Unit::Count, MagnitudeOutsideWideL3),
    Reading(2416, "Intervals", Unit::Count, FlickerIntervalsL3),
    Reading(2417, "Plt above 1", Unit::Count, FlickerOutsideL3),
    Reading(2421, "Intervals", Unit::Count, HarmonicIntervalsL3),
    Reading(2422, "THD above 8 %", Unit::Count, HarmonicOutsideNarrowL3),
    Reading(2423, "Order too high", Unit::Count, HarmonicOutsideWideL3),
    ReadOnly(2430, "Primary DNS", "192.168.1.2"),
    Number(2461, "VT primary", Unit::Volt, "400.00", 1, 999999.99, 2),
    Number(2462, "VT secondary", Unit::Volt, "400.00", 1, 999.99, 2),
    ReadOnly(2512, "Spring start", "03-21"),
    ReadOnly(2513, "Summer start", "06-21"),
    ReadOnly(2514, "Autumn start", "09-22"),
    ReadOnly(2515, "Winter start", "12-21"),
    ReadOnly(2517, "Secondary DNS", "192.168.1.3"),
    ReadOnly(2521, "SMTP server", "192.168.1.6"),
    Address(2590, "IP address", "192.168.1.40"),
    Address(2591, "Gateway", "192.168.1.1"),
    Address(2592, "Subnet mask", "255.255.255.0"),
    ReadOnly(2593, "IPv6 gateway", "2001:db8:40::1"),
    ReadOnly(2594, "IPv6 address", "2001:db8:40::117"),
    Choice(2601, "Time format", kTimeFormats, "24 h"),
    Choice(2604, "Sync source", kSyncSources, "Ethernet"),
    Choice(2605, "Sync type", kSyncTypes, "UTC"),
    ReadOnly(2608, "Active rate", "A"),
    ReadOnly(2609, "Active season", "Winter"),
    ReadOnly(2610, "Rate mode", "Time of use"),
    ReadOnly(2611, "Next change", "22:00"),
    Seconds(2616, "Time zone", "3600", -50400, 50400),
    Number(2658, "Nominal voltage", Unit::Volt, "230.00", 50, 999999.99, 2),
    Reading(2675, "Neutral voltage", Unit::Volt, VoltageNeutral),
    Reading(2679, "Neutral voltage", Unit::Volt, VoltageNeutral, Aspect::Minimum),
    Reading(2680, "Neutral voltage", Unit::Volt, VoltageNeutral, Aspect::Maximum),
    Reading(2714, "Flicker Pst", Unit::None, ShortFlickerL1),
    Reading(2715, "Flicker Plt", Unit::None, LongFlickerL1),
    Reading(2716, "Pst maximum", Unit::None, ShortFlickerL1, Aspect::Maximum),
    Reading(2970, "Mean", Unit::Percent, ThdVoltageL1, Aspect::Mean),
    Reading(2971, "Deviation", Unit::Percent, ThdVoltageL1, Aspect::Deviation),
    Reading(2972, "Minimum", Unit::Percent, ThdVoltageL1, Aspect::Minimum),
    Reading(2974, "Maximum", Unit::Percent, ThdVoltageL1, Aspect::Maximum),
    Reading(2989, "Mean", Unit::Volt, VoltageL1, Aspect::Mean),
    Reading(2990, "Deviation", Unit::Volt, VoltageL1, Aspect::Deviation),
    Reading(2991, "Minimum", Unit::Volt, VoltageL1, Aspect::Minimum),
    Reading(2993, "Maximum", Unit::Volt, VoltageL1, Aspect::Maximum),
    Reading(3008, "THD voltage L1", Unit::Percent, ThdVoltageL1),
    Reading(3044, "Flicker Pst", Unit::None, ShortFlickerL2),
    Reading(3045, "Flicker Plt", Unit::None, LongFlickerL2),
    Reading(3046, "Pst maximum", Unit::None, ShortFlickerL2, Aspect::Maximum),
    Reading(3300, "Mean", Unit::Percent, ThdVoltageL2, Aspect::Mean),
    Reading(3301, "Deviation", Unit::Percent, ThdVoltageL2, Aspect::Deviation),
    Reading(3302, "Minimum", Unit::Percent, ThdVoltageL2, Aspect::Minimum),
    Reading(3304, "Maximum", Unit::Percent, ThdVoltageL2, Aspect::Maximum),
    Reading(3319, "Mean", Unit::Volt, VoltageL2, Aspect::Mean),
    Reading(3320, "Deviation", Unit::Volt, VoltageL2, Aspect::Deviation),
    Reading(3321, "Minimum", Unit::Volt, VoltageL2, Aspect::Minimum),
    Reading(3323, "Maximum", Unit::Volt, VoltageL2, Aspect::Maximum),
    Reading(3338, "THD voltage L2", Unit::Percent, ThdVoltageL2),
    Reading(3374, "Flicker Pst", Unit::None, ShortFlickerL3),
    Reading(3375, "Flicker Plt", Unit::None, LongFlickerL3),
    Reading(3376, "Pst maximum", Unit::None, ShortFlickerL3, Aspect::Maximum),
    Reading(3630, "Mean", Unit::Percent, ThdVoltageL3, Aspect::Mean),
    Reading(3631, "Deviation", Unit::Percent, ThdVoltageL3, Aspect::Deviation),
    Reading(3632, "Minimum", Unit::Percent, ThdVoltageL3, Aspect::Minimum),
    Reading(3634, "Maximum", Unit::Percent, ThdVoltageL3, Aspect::Maximum),
    Reading(3649, "Mean", Unit::Volt, VoltageL3, Aspect::Mean),
    Reading(3650, "Deviation", Unit::Volt, VoltageL3, Aspect::Deviation),
    Reading(3651, "Minimum", Unit::Volt, VoltageL3, Aspect::Minimum),
    Reading(3653, "Maximum", Unit::Volt, VoltageL3, Aspect::Maximum),
    Reading(3668, "THD voltage L3", Unit::Percent, ThdVoltageL3),
    Choice(3676, "Polarity U1", kPolarities, "Normal"),
    Choice(3679, "Polarity U2", kPolarities, "Normal"),
    Choice(3680, "Polarity U3", kPolarities, "Normal"),
    Reading(3681, "Voltage L1-L2", Unit::Volt, VoltageL12),
    Reading(3685, "Voltage L1-L2", Unit::Volt, VoltageL12, Aspect::Minimum),
    Reading(3686, "Voltage L1-L2", Unit::Volt, VoltageL12, Aspect::Maximum),
    Reading(3687, "Voltage L-L", Unit::Volt, VoltageLlAverage),
    Reading(3691, "Voltage L-L", Unit::Volt, VoltageLlAverage, Aspect::Minimum),
    Reading(3692, "Voltage L-L", Unit::Volt, VoltageLlAverage, Aspect::Maximum),
    Reading(3693, "Voltage L2-L3", Unit::Volt, VoltageL23),
    Reading(3697, "Voltage L2-L3", Unit::Volt, VoltageL23, Aspect::Minimum),
    Reading(3698, "Voltage L2-L3", Unit::Volt, VoltageL23, Aspect::Maximum),
    Reading(3699, "Voltage L3-L1", Unit::Volt, VoltageL31),
    Reading(3703, "Voltage L3-L1", Unit::Volt, VoltageL31, Aspect::Minimum),
    Reading(3704, "Voltage L3-L1", Unit::Volt, VoltageL31, Aspect::Maximum),
    Reading(3705, "Voltage L1-N", Unit::Volt, VoltageL1),
    Reading(3706, "Voltage L1-N", Unit::Volt, VoltageL1, Aspect::Minimum),
    Reading(3707, "Voltage L1-N", Unit::Volt, VoltageL1, Aspect::Maximum),
    Reading(3708, "Voltage L-N", Unit::Volt, VoltageLnAverage),
    Reading(3709, "Voltage L-N", Unit::Volt, VoltageLnAverage, Aspect::Minimum),
    Reading(3710, "Voltage L-N", Unit::Volt, VoltageLnAverage, Aspect::Maximum),
    Reading(3711, "Voltage L2-N", Unit::Volt, VoltageL2),
    Reading(3712, "Voltage L2-N", Unit::Volt, VoltageL2, Aspect::Minimum),
    Reading(3713, "Voltage L2-N", Unit::Volt, VoltageL2, Aspect::Maximum),
    Reading(3714, "Voltage L3-N", Unit::Volt, VoltageL3),
    Reading(3715, "Voltage L3-N", Unit::Volt, VoltageL3, Aspect::Minimum),
    Reading(3716, "Voltage L3-N", Unit::Volt, VoltageL3, Aspect::Maximum),
    Choice(3717, "Wiring", kWirings, "4W-WYE"),
    Choice(3718, "Voltage decimals", kDecimals, "1"),
    Reading(3719, "Mean", Unit::Percent, Unbalance, Aspect::Mean),
    Reading(3720, "Maximum", Unit::Percent, Unbalance, Aspect::Maximum),
    Reading(3721, "Minimum", Unit::Percent, Unbalance, Aspect::Minimum),
    Choice(3900, "Harmonics", kHarmonicCounts, "31"),
});
// clang-format on

constexpr bool IsSound(const Register& row) {
    switch (row.kind) {
        case Kind::Reading: return row.quantity != None;
        case Kind::Choice: return std::ranges::find(row.items, row.preset) != row.items.end() && row.items.size() <= 40;
        case Kind::Number:
        case Kind::Seconds: return row.low < row.high;
        case Kind::Reset: return row.reset != ResetScope::None;
        case Kind::Address:
        case Kind::YesNo:
        case Kind::ReadOnlyText: return !row.preset.empty();
    }
    return false;
}

static_assert(std::ranges::is_sorted(kCatalogue, std::ranges::less_equal{}, &Register::id) &&
                  std::ranges::adjacent_find(kCatalogue, std::ranges::equal_to{}, &Register::id) == kCatalogue.end(),
              "registers stand in rising order, each once");
static_assert(std::ranges::all_of(kCatalogue, IsSound), "a register lacks what its kind needs");
static_assert(std::ranges::all_of(kCatalogue, [](const Register& row) { return row.label.size() < 40; }),
              "a label fits its field");

}  // namespace

std::span<const Register> Catalogue() { return kCatalogue; }

const Register* FindRegister(std::uint32_t id) {
    const auto found = std::ranges::lower_bound(kCatalogue, id, {}, &Register::id);
    return found != kCatalogue.end() && found->id == id ? &*found : nullptr;
}

}  // namespace meter
