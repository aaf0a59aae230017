#include "simulator/panel/key_input.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

namespace {

using std::chrono::milliseconds;

/// What fingers do, word by word, and the records that come out: "2+" presses key 2, "2-" releases it, "79" waits so
/// many milliseconds; "=6+" is a record that comes then.
// clang-format off
constexpr std::pair<const char*, const char*> kStories[] = {
    {"the other keys are reported at once, each change once",
     "1+ =1+ 1+ 1- =1- 1- 4+ =4+ 4- =4- 5+ =5+ 5- =5- 6+ =6+ 6- =6-"},
    {"2 and 3 are one key",                         "2+ 79 3+ =6+ 500 2- =6- 3-"},
    {"in either order",                             "3+ 79 2+ =6+ 500 3- =6- 2-"},
    {"apart, they are themselves",                  "2+ 80 =2+ 3+ =3+ 2- =2- 3- =3-"},
    {"a tap is not held back",                      "3+ 3- =3+ =3- 2+"},
    {"another key keeps the order",                 "2+ 5+ =2+ =5+ 3+ =3+ 5- =5-"},
    {"one of the pair that goes down again is itself", "2+ 3+ =6+ 2- =6- 2+ 80 =2+ 2- =2- 3-"},
};
// clang-format on

TEST(KeyInput, TellsWhatTheFingersMean) {
    for (const auto& [what, story] : kStories) {
        std::string told;
        panel::KeyInput input([&told](panel::KeyRecord record) {
            told += " =" + std::to_string(record.code) + (record.state == 0 ? "+" : "-");
        });
        panel::KeyInput::Time now{};
        std::istringstream words(story);
        for (std::string word; words >> word;) {
            if (word.front() == '=') continue;
            told += " " + word;
            const auto key = static_cast<panel::Key>(word.front() - '0');
            if (word.back() == '+') {
                input.Press(key, now);
            } else if (word.back() == '-') {
                input.Release(key);
            } else {
                now += milliseconds(std::stoi(word));
                input.Tick(now);
            }
        }
        EXPECT_EQ(told, std::string(" ") + story) << what;
    }
}

}  // namespace
