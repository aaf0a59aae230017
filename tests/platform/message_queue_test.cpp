#include "platform/message_queue.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>
#include <thread>

#include "platform/semaphore.h"

namespace {

std::atomic<int> allocationsLeft{-1};  // the last one fails; below zero: without limit

bool HasMemory() {
    if (allocationsLeft > 0) --allocationsLeft;
    return allocationsLeft != 0;
}

}  // namespace

/// What the platform takes from the heap, as long as there is some.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return HasMemory() ? ::operator new(size) : nullptr;
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return HasMemory() ? ::operator new[](size) : nullptr;
}

namespace {

constexpr std::size_t kSlots = 3;

class Queue : public testing::Test {
protected:
    int Send(std::int64_t value) { return os::msgQSend(m_queue, &value, sizeof value, os::kNoWait, 0); }

    std::int64_t Receive(int timeout = os::kNoWait) {
        std::int64_t value = -1;
        EXPECT_EQ(os::msgQReceive(m_queue, &value, sizeof value, timeout), static_cast<int>(sizeof value));
        return value;
    }

    void TearDown() override { EXPECT_EQ(os::msgQDelete(m_queue), 0); }

    os::MessageQueueId m_queue = os::msgQCreate(kSlots, sizeof(std::int64_t), os::kQueueFifo);
};

TEST_F(Queue, GivesMessagesBackInTheOrderTheyCameWhileItsRingTurns) {
    std::int64_t next = 0;
    for (std::int64_t sent = 0; sent < 20; ++sent) {
        ASSERT_EQ(Send(sent), 0);
        while (sent % 3 == 2 && next <= sent) EXPECT_EQ(Receive(), next++);
    }
}

TEST_F(Queue, TellsWhyItRefuses) {
    const auto errorOf = [](int result) {
        EXPECT_EQ(result, -1);
        return os::msgQError();
    };
    std::int64_t value = 0;
    for (const int timeout : {os::kNoWait, 20})
        EXPECT_EQ(errorOf(os::msgQReceive(m_queue, &value, sizeof value, timeout)), os::QueueError::Empty);

    const std::array<char, sizeof value + 1> tooLong{};
    EXPECT_EQ(errorOf(os::msgQSend(m_queue, tooLong.data(), tooLong.size(), os::kNoWait, 0)), os::QueueError::TooLong);

    for (std::size_t i = 0; i < kSlots; ++i) ASSERT_EQ(Send(7), 0);
    EXPECT_EQ(errorOf(Send(8)), os::QueueError::Full);
    EXPECT_EQ(Receive(), 7);
    EXPECT_EQ(Send(9), 0) << "a freed slot takes a message again";

    EXPECT_EQ(errorOf(os::msgQSend(nullptr, &value, sizeof value, os::kNoWait, 0)), os::QueueError::NoQueue);
    EXPECT_EQ(errorOf(os::msgQReceive(nullptr, &value, sizeof value, os::kWaitForever)), os::QueueError::NoQueue);
    EXPECT_EQ(os::msgQDelete(nullptr), -1);
}

TEST_F(Queue, CutsALongMessageToTheReceiversRoomAndCarriesOnesWithoutABody) {
    ASSERT_EQ(os::msgQSend(m_queue, "abcdef", 6, os::kNoWait, 0), 0);
    ASSERT_EQ(os::msgQSend(m_queue, nullptr, 0, os::kNoWait, 0), 0);
    ASSERT_EQ(os::msgQSend(m_queue, "xy", 2, os::kNoWait, 0), 0);
    std::array<char, 4> text{};
    EXPECT_EQ(os::msgQReceive(m_queue, text.data(), text.size(), os::kNoWait), 4);
    EXPECT_EQ(std::memcmp(text.data(), "abcd", 4), 0);
    EXPECT_EQ(os::msgQReceive(m_queue, nullptr, 0, os::kNoWait), 0);
    EXPECT_EQ(os::msgQReceive(m_queue, text.data(), text.size(), os::kNoWait), 2);
    EXPECT_EQ(std::memcmp(text.data(), "xy", 2), 0);
}

TEST(Memory, ThatEndsGivesNoQueueAndNoMutexAndNothingIsHalfMade) {
    EXPECT_EQ(os::msgQCreate(0, 8, os::kQueueFifo), nullptr);
    EXPECT_EQ(os::msgQCreate(8, 0, os::kQueueFifo), nullptr);
    for (int pieces = 1; pieces <= 3; ++pieces) {
        allocationsLeft = pieces;
        EXPECT_EQ(os::msgQCreate(8, 8, os::kQueueFifo), nullptr) << "piece " << pieces;
    }
    allocationsLeft = 1;
    EXPECT_EQ(os::semMCreate(os::kSemInversionSafe), nullptr);
    allocationsLeft = -1;
}

TEST_F(Queue, WakesWhoWaitsForAMessageOrForRoomAndLosesNothingBetweenManySenders) {
    constexpr int kSenders = 4;
    constexpr int kMessages = 500;
    std::array<std::thread, kSenders> senders;
    for (auto& sender : senders) {
        sender = std::thread([this] {
            for (std::int64_t i = 1; i <= kMessages; ++i) {
                EXPECT_EQ(os::msgQSend(m_queue, &i, sizeof i, os::kWaitForever, 0), 0);
            }
        });
    }
    std::int64_t sum = 0;
    for (int i = 0; i < kSenders * kMessages; ++i) sum += Receive(os::kWaitForever);
    for (auto& sender : senders) sender.join();
    EXPECT_EQ(sum, kSenders * kMessages * (kMessages + 1) / 2);
}

}  // namespace
