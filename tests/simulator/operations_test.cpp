#include "simulator/meter/model/operations.h"

#include <limits>

#include "tests/simulator/bench.h"

namespace {

using namespace meter;
using bench::Bytes;

class AllOperations : public bench::MeterAlone {};

TEST_F(AllOperations, TakeTheLargestNumbers) {
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    for (const Operation& operation : Operations()) {
        if (operation.texts > 0) continue;
        for (std::uint32_t last : {0U, 1U, 3U, kMost}) {
            Bytes payload;
            for (std::size_t i = 0; i < operation.words; ++i) {
                const bool counts = operation.countWord == static_cast<int>(i);
                const Bytes word = bench::Words({counts ? last : kMost});
                payload.insert(payload.end(), word.begin(), word.end());
            }
            const bool many = operation.countWord != kFixedSize;
            Bytes reply(many ? operation.replySize * (last == kMost ? 1 : last) : operation.replySize);
            EXPECT_EQ(m_meter.Answer(operation.name, payload, reply), !many || last != kMost) << operation.name;
        }
    }
}

}  // namespace
