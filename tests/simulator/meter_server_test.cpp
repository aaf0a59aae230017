#include "simulator/meter/link/meter_server.h"

#include "rda/records.h"
#include "tests/simulator/link_bench.h"

namespace {

using namespace meter;
using bench::Bytes;
using bench::Connection;
using std::chrono::milliseconds;

constexpr std::size_t kReply = 23;

class Server : public bench::Link {
protected:
    void Serve(milliseconds later = {}) {
        for (int i = 0; i < 3; ++i) m_server.Serve(m_now + later);
    }

    MeterServer::Time m_now = std::chrono::steady_clock::now();
    const Bytes m_ask = bench::Call("DATETIMEINTERFACE_getLocalDateTimeStrings", {}, kReply);
};

TEST_F(Server, AnswersSeveralClientsHoweverTheirFramesAreCut) {
    Connection whole(m_server.Port());
    Connection pieces(m_server.Port());
    Bytes stream = m_ask;
    stream.insert(stream.end(), m_ask.begin(), m_ask.end());
    for (std::size_t cut = 0; cut <= stream.size(); ++cut) {
        pieces.Send(std::span(stream).first(cut));
        Serve();
        whole.Send(m_ask);
        Serve();
        EXPECT_EQ(whole.Take().size(), kReply) << cut;
        pieces.Send(std::span(stream).subspan(cut));
        Serve();
        EXPECT_EQ(pieces.Take().size(), 2 * kReply) << cut;
    }
    EXPECT_EQ(m_server.ConnectionCount(), 2U);
}

TEST_F(Server, DropsTheClientThatSendsRubbish) {
    constexpr std::uint32_t kMagic = 0x52522525;
    Bytes unterminated = bench::Call("DISPTASK_nop", {}, 0);
    unterminated[20] = std::byte{'x'};
    Bytes terminatedTwice = bench::Call("DISPTASK_nop", {}, 0);
    terminatedTwice[12] = std::byte{0};
    Bytes hugePayload = bench::Words({kMagic, 1});
    bench::Append(hugePayload, "");
    for (int i = 0; i < 4; ++i) hugePayload.push_back(std::byte{0x7F});
    Connection good(m_server.Port());
    for (const Bytes& bytes : {bench::Words({1, 2, 3}), bench::Words({kMagic, 0}), bench::Words({kMagic, 0xFFFFFFFF}),
                               unterminated, terminatedTwice, hugePayload, bench::Call("X", {}, 0xFFFFFFFF)}) {
        Connection rubbish(m_server.Port());
        rubbish.Send(bytes);
        Serve();
        EXPECT_EQ(rubbish.Take(), "");
        EXPECT_TRUE(rubbish.IsEnded()) << testing::PrintToString(bytes);
    }
    good.Send(bench::Call("NO_SUCH_CALL", {}, 4));
    good.Send(m_ask);
    Serve();
    EXPECT_EQ(good.Take().size(), kReply);
    EXPECT_EQ(m_server.UnansweredCount(), 1U);
}

TEST_F(Server, MisbehavesAsTold) {
    Connection client(m_server.Port());
    // With a fault it asks anew; without, it only waits longer. So many bytes come by then.
    for (const auto& [fault, later, bytes] : {std::tuple{"silent", 0, 0U},
                                              {"half", 0, 11U},
                                              {"slow", 0, 0U},
                                              {"", 1500, 23U},
                                              {"late", 0, 0U},
                                              {"", 3900, 0U},
                                              {"", 4000, 23U},
                                              {"drip", 0, 1U},
                                              {"", 2000, 2U},
                                              {"", 60'000, 20U},
                                              {"flood", 0, 69U}}) {
        if (*fault != '\0') {
            Tell(std::string("fault ") + fault);
            client.Send(m_ask);
        }
        Serve(milliseconds(later));
        EXPECT_EQ(client.Take().size(), bytes) << fault << " after " << later;
    }
    for (const auto& [fault, bytes] : {std::pair{"cut", 11U}, {"reset", 0U}}) {
        Connection ended(m_server.Port());
        Tell(std::string("fault ") + fault);
        ended.Send(m_ask);
        Serve();
        EXPECT_EQ(ended.Take().size(), bytes) << fault;
        EXPECT_TRUE(ended.IsEnded()) << fault;
    }
    Tell("fault absent");
    EXPECT_FALSE(Connection(m_server.Port()).IsOpen());
    Tell("fault none");
    Connection again(m_server.Port());
    again.Send(m_ask);
    Serve();
    EXPECT_EQ(again.Take().size(), kReply);
}

TEST_F(Server, SpoilsTheFieldsOfAReplyAndNothingElse) {
    const Frame bar{"PQINTERFACE_getMinMaxBarData", bench::Words({111, 111, 111}), sizeof(MinMaxBarData)};
    const Frame text{"PDMINTERFACE_getRegisterValue", bench::Words({111}), sizeof(RegisterValue)};
    const Frame count{"EVLIF_getEventLogEntryCount", {}, 4};
    const auto trueCount = m_server.Take(count).reply;
    m_console.Execute("fault infinite");
    MinMaxBarData values{};
    const auto spoiled = m_server.Take(bar).reply;
    ASSERT_EQ(spoiled.size(), sizeof values);
    std::memcpy(&values, spoiled.data(), sizeof values);
    for (const MinMaxValue& value : {values.minimum, values.maximum, values.present})
        EXPECT_FALSE(std::isfinite(value.value.Get()));
    EXPECT_EQ(m_server.Take(count).reply, trueCount);
    m_console.Execute("fault endless");
    EXPECT_EQ(m_server.Take(text).reply, Bytes(sizeof(RegisterValue), std::byte{'W'}));
    m_console.Execute("fault huge");
    EXPECT_EQ(m_server.Take(count).reply, Bytes(4, std::byte{0xFF}));
}

}  // namespace
