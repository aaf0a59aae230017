#include "simulator/meter/link/frame_reader.h"

#include <gtest/gtest.h>

#include "tests/simulator/link_bench.h"

namespace {

using meter::Frame;
using meter::FrameReader;
using Result = FrameReader::Result;

TEST(FrameReader, PutsAStreamTogetherHoweverItWasCut) {
    bench::Bytes stream = bench::Call("PQINTERFACE_getPhasorData", bench::Words({10}), 1720);
    const bench::Bytes second = bench::Call("DISPTASK_nop", {}, 0);
    stream.insert(stream.end(), second.begin(), second.end());
    for (std::size_t cut = 0; cut <= stream.size(); ++cut) {
        FrameReader reader;
        std::vector<Frame> frames;
        const std::span<const std::byte> whole(stream);
        for (const auto part : {whole.first(cut), whole.subspan(cut)}) {
            reader.Feed(part);
            Frame frame;
            while (reader.Next(frame) == Result::Ready) frames.push_back(frame);
        }
        ASSERT_EQ(frames.size(), 2U) << cut;
        EXPECT_EQ(frames[0].name, "PQINTERFACE_getPhasorData");
        EXPECT_EQ(frames[0].payload, bench::Words({10}));
        EXPECT_EQ(frames[0].responseSize, 1720U);
        EXPECT_EQ(frames[1].name, "DISPTASK_nop");
        EXPECT_EQ(frames[1].responseSize, 0U);
    }
}

TEST(FrameReader, GivesUpOnWhatIsNoFrame) {
    const auto resultOf = [](const bench::Bytes& bytes) {
        FrameReader reader;
        reader.Feed(bytes);
        Frame frame;
        return reader.Next(frame);
    };
    const bench::Bytes good = bench::Call("DISPTASK_nop", {}, 0);
    for (const auto& [at, wrong] : {std::pair{0U, '\0'}, {20U, 'x'}, {12U, '\0'}}) {  // magic, terminators
        bench::Bytes bytes = good;
        bytes[at] = std::byte(wrong);
        EXPECT_EQ(resultOf(bytes), Result::Broken) << at;
    }
    EXPECT_EQ(resultOf(bench::Words({0x52522525, 0})), Result::Broken);
    EXPECT_EQ(resultOf(bench::Words({0x52522525, 0xFFFFFFFF})), Result::Broken);
    EXPECT_EQ(resultOf(bench::Call("X", {}, 0xFFFFFFFF)), Result::Broken);
    bench::Bytes hugePayload = bench::Words({0x52522525, 1, 0});
    hugePayload.resize(9);
    const bench::Bytes size = bench::Words({0x7FFFFFFF});
    hugePayload.insert(hugePayload.end(), size.begin(), size.end());
    EXPECT_EQ(resultOf(hugePayload), Result::Broken);
}

}  // namespace
