#include "simulator/meter/wire/codec.h"

#include <set>

#include "simulator/meter/model/operations.h"
#include "tests/simulator/bench.h"

namespace {

using namespace meter;

TEST(Signatures, AreTheOnlyShapesThatAreAnsweredAndEveryReplyFillsItsFields) {
    Meter meter(bench::kSeed, bench::kStart);
    ASSERT_EQ(MeterOperations().size(), Operations().size());
    for (const Signature& signature : MeterOperations()) {
        SCOPED_TRACE(signature.name);
        const std::vector<std::string> arguments(signature.Arguments().size(), "3");
        const auto whole = EncodeArguments(signature, arguments);
        EXPECT_EQ(DecodePayload(signature, whole).size(), arguments.size());
        bench::Bytes reply(ReplySize(signature, whole), std::byte{0xA5});
        const bench::Bytes untouched = reply;
        for (std::size_t cut = 0; cut < whole.size(); ++cut)
            EXPECT_FALSE(meter.Answer(signature.name, std::span(whole).first(cut), reply)) << cut;
        bench::Bytes longer = whole;
        longer.push_back(std::byte{1});
        EXPECT_FALSE(meter.Answer(signature.name, longer, reply));
        EXPECT_EQ(reply, untouched);
        bench::Bytes tooLong(reply.size() + 1);
        EXPECT_FALSE(meter.Answer(signature.name, whole, tooLong));
        EXPECT_TRUE(meter.Answer(signature.name, whole, reply));
        const Json decoded = DecodeReply(signature, reply);
        EXPECT_EQ(decoded.empty(), signature.reply.shape == ReplyShape::None);
        EXPECT_NO_THROW(decoded.dump());
        // The largest numbers; where one of them counts, three entries and no more.
        std::vector<std::string> largest(arguments.size(), "4294967295");
        const bool counts = signature.reply.shape == ReplyShape::Records || signature.reply.shape == ReplyShape::Text;
        if (counts) {
            EXPECT_FALSE(meter.Answer(signature.name, EncodeArguments(signature, largest), reply));
            largest[signature.reply.countArgument] = "3";
        }
        EXPECT_TRUE(meter.Answer(signature.name, EncodeArguments(signature, largest), reply));
        if (reply.empty()) continue;
        reply.pop_back();
        EXPECT_FALSE(meter.Answer(signature.name, whole, reply));
    }
    EXPECT_FALSE(meter.Answer("DISPTASK_nops", {}, {}));
    EXPECT_FALSE(meter.Answer("", {}, {}));
}

TEST(Codec, TakesEveryCutOfAReply) {
    const bench::Bytes whole(1632, std::byte{'x'});
    const Signature& page = *FindMeterOperation("CUSTOMSCREENINTERFACE_getNormalModeScreenData");
    std::set<std::size_t> sizes;
    for (std::size_t cut = 0; cut <= whole.size(); ++cut)
        sizes.insert(DecodeReply(page, std::span(whole).first(cut)).size());
    EXPECT_EQ(sizes, (std::set<std::size_t>{0, 1, 2, 3, 4, 5, 6}));
    const Signature& alarms = *FindMeterOperation("ALARMSINTERFACE_getActiveAlarms");
    EXPECT_EQ(DecodeReply(alarms, std::span(whole).first(185)).size(), 2U);
}

TEST(Codec, RefusesArgumentsWithTheirNames) {
    const Signature& write = *FindMeterOperation("PDMINTERFACE_setRegisterValue");
    const auto refusal = [](const Signature& signature, const std::vector<std::string>& arguments) {
        try {
            EncodeArguments(signature, arguments);
        } catch (const std::invalid_argument& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_EQ(refusal(write, {"111"}), "PDMINTERFACE_setRegisterValue: the argument value is missing");
    EXPECT_EQ(refusal(write, {"-1", "x"}), "registerId is a number from 0 to 4294967295, not \"-1\"");
    EXPECT_EQ(refusal(write, {"1", "x", "y"}), "PDMINTERFACE_setRegisterValue takes 2 arguments; \"y\" is too many");
    EXPECT_EQ(refusal(*FindMeterOperation("DISPTSK_setVekTemperature"), {"warm"}), "degrees is a number, not \"warm\"");
    const std::vector<std::string> many = {"0", "0xFFFFFFFF"};
    const Signature& alarms = *FindMeterOperation("ALARMSINTERFACE_getActiveAlarms");
    EXPECT_THROW(ReplySize(alarms, EncodeArguments(alarms, many)), std::invalid_argument);
    bench::Bytes expected = bench::Words({0x6F});
    bench::Append(expected, "600 \xB0");
    EXPECT_EQ(EncodeArguments(write, std::vector<std::string>{"0x6F", "600 \u00B0"}), expected);
}

TEST(Codec, WritesNoSecretDown) {
    const std::string_view operation = "SECURITYINTERFACE_verifyFrontPanelPassword";
    std::vector<std::string> arguments = {"USER", "open sesame"};
    const auto payload = EncodeArguments(*FindMeterOperation(operation), arguments);
    EXPECT_EQ(DecodePayload(*FindMeterOperation(operation), payload).dump(),
              R"({"userName":"USER","password":"********"})");
    const auto textOf = [](std::span<const std::byte> bytes) {
        return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    };
    EXPECT_EQ(textOf(WithoutSecrets(operation, payload)), std::string("USER\0********\0", 14));
    for (std::size_t cut = 0; cut < payload.size(); ++cut) {
        const std::string shown = textOf(WithoutSecrets(operation, std::span(payload).first(cut)));
        EXPECT_EQ(shown.find('o'), shown.npos) << "cut after " << cut;
    }
    arguments = {"54", "7"};
    const auto write = EncodeArguments(*FindMeterOperation("PDMINTERFACE_setRegisterValue"), arguments);
    EXPECT_EQ(WithoutSecrets("PDMINTERFACE_setRegisterValue", write), write);
}

}  // namespace
