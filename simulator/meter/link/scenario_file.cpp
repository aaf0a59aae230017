#include "simulator/meter/link/scenario_file.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace meter {
namespace {

using nlohmann::json;

constexpr double kLatest = 86400.0;  // seconds
constexpr std::string_view kScenario = "scenario";
constexpr int kDeepest = 8;  // values within values; three are what a file needs

template <typename Names>
std::string ListOf(const Names& names) {
    std::string list;
    for (const std::string_view name : names) list += (list.empty() ? "" : ", ") + std::string(name);
    return list;
}

/// A value of the file and its place in it, for messages: "waves[1].voltage".
class Value {
public:
    Value(const json& value, std::string place) : m_value(value), m_place(std::move(place)) {}

    [[noreturn]] void Refuse(const std::string& why) const {
        throw std::runtime_error((m_place.empty() ? "" : m_place + ": ") + why);
    }

    /// Nothing but these may stand in the object.
    void Allow(std::initializer_list<std::string_view> names) const {
        if (!m_value.is_object()) Refuse("an object in braces is expected");
        for (const auto& [name, value] : m_value.items())
            if (std::ranges::find(names, name) == names.end())
                Refuse("\"" + name + "\" means nothing here; there are " + ListOf(names));
    }
    bool Has(const char* name) const { return m_value.contains(name); }
    Value At(const char* name) const {
        if (!Has(name)) Refuse("\"" + std::string(name) + "\" is missing");
        return {m_value[name], m_place.empty() ? name : m_place + "." + name};
    }
    std::vector<Value> List(const char* name) const {
        std::vector<Value> entries;
        if (!Has(name)) return entries;
        const Value list = At(name);
        if (!list.m_value.is_array()) list.Refuse("a list in brackets is expected");
        for (std::size_t i = 0; i < list.m_value.size(); ++i)
            entries.emplace_back(list.m_value[i], list.m_place + "[" + std::to_string(i) + "]");
        return entries;
    }

    std::string Text() const {
        if (!m_value.is_string()) Refuse("a text is expected, not " + m_value.dump());
        return m_value.get<std::string>();
    }
    bool Truth() const {
        if (!m_value.is_boolean()) Refuse("true or false is expected, not " + m_value.dump());
        return m_value.get<bool>();
    }
    double Number(double low, double high) const {
        if (!m_value.is_number()) Refuse("a number is expected, not " + m_value.dump());
        const double number = m_value.get<double>();
        if (number < low || number > high)
            Refuse(m_value.dump() + " is not within " + json(low).dump() + " to " + json(high).dump());
        return number;
    }
    std::int64_t Milliseconds() const { return std::llround(Number(0.0, kLatest) * 1000.0); }
    /// One number for each phase, or one for all.
    Phases EachPhase(double low, double high) const {
        if (m_value.is_number()) {
            const double all = Number(low, high);
            return {all, all, all};
        }
        if (!m_value.is_array() || m_value.size() != kPhaseCount)
            Refuse("a number, or three in brackets, is expected, not " + m_value.dump());
        Phases phases{};
        for (std::size_t i = 0; i < phases.size(); ++i)
            phases[i] = Value(m_value[i], m_place + "[" + std::to_string(i) + "]").Number(low, high);
        return phases;
    }

private:
    const json& m_value;
    std::string m_place;
};

Scenario SituationOf(const Value& file) {
    Scenario situation;
    if (file.Has("base")) {
        const Value base = file.At("base");
        const Scenario* known = FindScenario(base.Text());
        if (known == nullptr) base.Refuse("there is no scenario \"" + base.Text() + "\" to begin with");
        situation = *known;
    }
    if (file.Has("delta")) situation.delta = file.At("delta").Truth();
    if (file.Has("emptyLog")) situation.emptyLog = file.At("emptyLog").Truth();
    if (file.Has("hardwareLock")) situation.hardwareLock = file.At("hardwareLock").Truth();
    if (file.Has("refuseWrites")) situation.refuseWrites = file.At("refuseWrites").Truth();
    if (file.Has("alarms")) situation.alarms = static_cast<std::uint32_t>(file.At("alarms").Number(0, 500));
    return situation;
}

Wave WaveOf(const Value& entry) {
    entry.Allow(
        {"at", "over", "voltage", "current", "voltageAngle", "currentAngle", "harmonics", "frequency", "reversed"});
    Wave wave;
    wave.at = entry.At("at").Milliseconds();
    if (entry.Has("over")) wave.over = entry.At("over").Milliseconds();
    if (entry.Has("voltage")) wave.voltage = entry.At("voltage").EachPhase(0, 2);
    if (entry.Has("current")) wave.current = entry.At("current").EachPhase(0, 10);
    if (entry.Has("voltageAngle")) wave.voltageAngle = entry.At("voltageAngle").EachPhase(-180, 180);
    if (entry.Has("currentAngle")) wave.currentAngle = entry.At("currentAngle").EachPhase(-180, 180);
    if (entry.Has("harmonics")) wave.harmonics = entry.At("harmonics").Number(0, 20);
    if (entry.Has("frequency")) wave.frequency = entry.At("frequency").Number(-5, 5);
    if (entry.Has("reversed")) wave.reversed = entry.At("reversed").Truth();
    return wave;
}

Waves WavesOf(const Value& file) {
    std::vector<Wave> waves;
    for (const Value& entry : file.List("waves")) {
        const Wave wave = WaveOf(entry);
        if (!waves.empty() && wave.at < waves.back().at) entry.Refuse("it comes before the wave above it");
        waves.push_back(wave);
    }
    return Waves(std::move(waves));
}

Script ScriptOf(const Value& file) {
    Script script;
    for (const Value& event : file.List("events")) {
        event.Allow({"at", "do"});
        const std::string line = event.At("do").Text();
        const std::size_t word = std::min(line.find_first_not_of(" \t\r"), line.size());
        if (line.compare(word, kScenario.size(), kScenario) == 0)
            event.At("do").Refuse("a scenario cannot start another");
        script.Add(event.At("at").Milliseconds(), line);
    }
    for (const Value& entry : file.List("faults")) {
        entry.Allow({"at", "for", "fault"});
        const std::string name = entry.At("fault").Text();
        Fault fault{};
        if (!FindFault(name, fault))
            entry.At("fault").Refuse("there is no fault \"" + name + "\"; there are " + ListOf(FaultNames()));
        const std::int64_t at = entry.At("at").Milliseconds();
        script.Add(at, "fault " + name);
        if (entry.Has("for")) script.Add(at + entry.At("for").Milliseconds(), "fault none");
    }
    return script;
}

}  // namespace

bool IsScenarioFile(std::string_view name) { return name.ends_with(".json") || name.find('/') != name.npos; }

std::unique_ptr<ScenarioFile> ParseScenario(const std::string& path, const std::string& text) {
    try {
        const auto mayStand = [](int depth, json::parse_event_t, json&) {
            if (depth > kDeepest) throw std::runtime_error("so many values within values mean nothing");
            return true;
        };
        const json parsed = json::parse(text, mayStand, true, true);
        const Value file(parsed, "");
        file.Allow({"$schema", "name", "purpose", "base", "delta", "alarms", "emptyLog", "hardwareLock", "refuseWrites",
                    "waves", "events", "faults"});
        auto scenario = std::make_unique<ScenarioFile>();
        scenario->name = file.At("name").Text();
        if (file.Has("purpose")) scenario->purpose = file.At("purpose").Text();
        scenario->situation = SituationOf(file);
        scenario->situation.name = scenario->name;
        scenario->situation.purpose = scenario->purpose;
        scenario->waves = WavesOf(file);
        scenario->script = ScriptOf(file);
        return scenario;
    } catch (const json::exception& error) {  // no JSON, or a number beyond all numbers
        // "[json.exception.parse_error.101] parse error at line 3, column 5: ..." without its number
        const std::string what = error.what();
        throw std::runtime_error(path + ": " + what.substr(std::min(what.find("] ") + 2, what.size())));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(path + ": " + error.what());
    }
}

std::unique_ptr<ScenarioFile> LoadScenarioFile(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path);
    return ParseScenario(path, {std::istreambuf_iterator<char>(file), {}});
}

}  // namespace meter
