#include "simulator/meter/link/scenario_file.h"

#include <fstream>
#include <sstream>

#include "tests/simulator/link_bench.h"

namespace {

using namespace meter;
using enum Quantity;

std::string MistakeIn(const std::string& text) {
    try {
        ParseScenario("a.json", text);
    } catch (const std::runtime_error& mistake) {
        return mistake.what();
    }
    return "none";
}

constexpr std::pair<const char*, const char*> kMistakes[] = {
    {"{\n \"name\": \"a\",\n \"waves\": [}\n", "parse error at line 3, column 12: "},
    {"[]", "an object in braces is expected"},
    {"{}", "\"name\" is missing"},
    {R"({"name": 7})", "name: a text is expected, not 7"},
    {R"({"name": "a", "base": "sagg"})", "base: there is no scenario \"sagg\" to begin with"},
    {R"({"name": "a", "delta": 1})", "delta: true or false is expected, not 1"},
    {R"({"name": "a", "waves": {}})", "waves: a list in brackets is expected"},
    {R"({"name": "a", "waves": [{"at": 1, "voltage": [1, 2]}]})", "waves[0].voltage: a number, or three in brackets"},
    {R"({"name": "a", "waves": [{"at": 1, "voltage": [1, 1, 9]}]})", "waves[0].voltage[2]: 9 is not within 0.0 to 2.0"},
    {R"({"name": "a", "waves": [{"at": 2}, {"at": 1}]})", "waves[1]: it comes before the wave above it"},
    {R"({"name": "a", "events": [{"at": 1, "doo": "x"}]})", "events[0]: \"doo\" means nothing here"},
    {R"({"name": "a", "events": [{"at": 1, "do": " scenario b"}]})", "events[0].do: a scenario cannot start another"},
    {R"({"name": "a", "alarms": 1e999})", "number overflow parsing '1e999'"},
    {R"({"name": "a", "faults": [{"at": 1, "fault": "lazy"}]})", "faults[0].fault: there is no fault \"lazy\""},
    {R"({"name": "a", "faults": [{"fault": "slow"}]})", "faults[0]: \"at\" is missing"},
};

TEST(ScenarioFile, NamesThePlaceOfEveryMistake) {
    EXPECT_EQ(MistakeIn(R"({"name": "a"})"), "none");
    for (const auto& [text, complaint] : kMistakes)
        EXPECT_TRUE(MistakeIn(text).starts_with(std::string("a.json: ") + complaint)) << MistakeIn(text);
    EXPECT_EQ(MistakeIn(std::string(100'000, '[')), "a.json: so many values within values mean nothing");
}

TEST(Script, RefusesWhatIsNoStep) {
    for (const char* wrong : {"navigate 68", "5", "5 ", "-1 state", "nan state", "1e99 state", "2 state\n1 state"}) {
        std::istringstream text(wrong);
        EXPECT_THROW(Script{text}, std::runtime_error) << wrong;
    }
}

TEST(ScenarioFile, TheSchemaKnowsTheSameWords) {
    std::ifstream file(SCENARIO_SCHEMA);
    const auto schema = nlohmann::json::parse(file);
    const auto wordsOf = [](const nlohmann::json& object) {
        std::string words;
        for (const auto& [name, value] : object["properties"].items()) words += "\"" + name + "\": null, ";
        return "{" + words.substr(0, words.size() - 2) + "}";
    };
    // Were one of them unknown, that would be the first mistake.
    EXPECT_EQ(MistakeIn(wordsOf(schema)).find("means nothing"), std::string::npos) << MistakeIn(wordsOf(schema));
    for (const char* list : {"waves", "events", "faults"}) {
        const std::string entry = wordsOf(schema["properties"][list]["items"]);
        const std::string mistake = MistakeIn(R"({"name": "a", ")" + std::string(list) + "\": [" + entry + "]}");
        EXPECT_NE(mistake, "none");
        EXPECT_EQ(mistake.find("means nothing"), std::string::npos) << mistake;
    }
}

class PlayedFile : public bench::Link {
protected:
    void Live(int seconds) {
        for (int i = 0; i < seconds * 10; ++i) {
            m_meter.Advance(100);
            m_console.Serve();
        }
    }
};

TEST_F(PlayedFile, ChangesTheNetworkAndDoesWhatIsDue) {
    const double before = m_meter.Value(VoltageL1);
    ASSERT_EQ(m_console.Execute("scenario " MOTOR_START), "ok");
    for (const auto& [seconds, part] : {std::pair{4, 1.0}, {2, 0.86}, {2, 0.93}, {6, 1.0}}) {
        Live(seconds);
        EXPECT_NEAR(m_meter.Value(VoltageL1) / before, part, 0.02) << seconds << " seconds later";
    }
    EXPECT_EQ(TextIn(Get(111).value), "600.00");
    Live(2);
    EXPECT_EQ(m_server.GetFault(), Fault::Slow);
    Live(2);
    EXPECT_EQ(m_server.GetFault(), Fault::None);
    Live(5);
    EXPECT_NEAR(m_meter.Value(Frequency), 49.8, 0.1);
    EXPECT_EQ(State()["scenario"], "motor-start");
    ASSERT_EQ(m_console.Execute("scenario normal"), "ok");
    Live(1);
    EXPECT_NEAR(m_meter.Value(Frequency), 50.0, 0.1);
    EXPECT_EQ(m_console.Execute("scenario no/such.json"), "error cannot read no/such.json");
}

}  // namespace
