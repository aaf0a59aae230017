#include "simulator/meter/link/trace.h"

#include "tests/simulator/link_bench.h"

namespace {

using namespace meter;

class TraceLines : public bench::Link {
protected:
    TraceLines() {
        m_server.OnCall([this](const LinkCall& call) {
            m_lines.push_back(nlohmann::json::parse(TraceLine(call, m_lines.size() + 1, m_meter.Now())));
        });
    }
    nlohmann::json Last(std::string_view operation, const bench::Bytes& payload, std::uint32_t size) {
        m_server.Take({std::string(operation), payload, size});
        return m_lines.back();
    }

    std::vector<nlohmann::json> m_lines;
};

TEST_F(TraceLines, TellTheFieldsOfRequestAndReply) {
    auto line = Last("PDMINTERFACE_getRegisterValue", bench::Words({111}), 264);
    EXPECT_EQ(line["time"], bench::kStart);
    EXPECT_EQ(line["call"], 1);
    EXPECT_EQ(line["operation"], "PDMINTERFACE_getRegisterValue");
    EXPECT_EQ(line["request"], (nlohmann::json{{"registerId", 111}}));
    EXPECT_EQ(line["reply"]["label"], "CT primary");
    EXPECT_EQ(line["bytes"], 264);
    EXPECT_EQ(line["result"], "ok");
    EXPECT_GE(line["us"], 0);
    line = Last("EVLIF_getEventLogData", bench::Words({0, 2}), 256);
    EXPECT_EQ(line["reply"].size(), 2U);
    EXPECT_FALSE(line["reply"][1]["source"].get<std::string>().empty());
    EXPECT_FALSE(line["reply"][0].contains("unused"));
}

TEST_F(TraceLines, NameTheFaultThatSpoiledACall) {
    EXPECT_EQ(Last("NO_SUCH_CALL", bench::Words({0xAB}), 4)["result"], "failed");
    EXPECT_EQ(m_lines.back()["request"]["hex"], "ab000000");
    m_server.SetFault(Fault::Half);
    const auto half = Last("PDMINTERFACE_getRegisterValue", bench::Words({111}), 264);
    EXPECT_EQ(half["result"], "half");
    EXPECT_EQ(half["bytes"], 132);
    EXPECT_TRUE(half["reply"].contains("description"));
    EXPECT_FALSE(half["reply"].contains("label")) << "it did not come whole";
    for (const auto& [fault, result] :
         {std::pair{Fault::Slow, "slow"}, {Fault::Silent, "silent"}, {Fault::Reset, "reset"}}) {
        m_server.SetFault(fault);
        EXPECT_EQ(Last("DISPTSK_getConnectionId", {}, 4)["result"], result);
        EXPECT_EQ(m_lines.back()["reply"].empty(), fault != Fault::Slow) << result;
    }
}

}  // namespace
