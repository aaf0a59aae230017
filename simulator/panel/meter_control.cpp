#include "simulator/panel/meter_control.h"

#include <sys/socket.h>

#include <array>
#include <chrono>
#include <nlohmann/json.hpp>

#include "simulator/panel/meter_socket.h"

namespace panel {
namespace {

constexpr std::chrono::seconds kStateInterval{1};
constexpr std::size_t kMaxAnswer = std::size_t{64} * 1024;
constexpr std::size_t kMaxQuestions = 32;

/// Puts a line on a connection of its own.
std::optional<std::string> Exchange(const std::string& path, const std::string& line) {
    const Descriptor simulator = ConnectToMeter(path);
    if (!simulator || !SendLine(simulator, line)) return std::nullopt;
    std::string answer;
    while (answer.size() < kMaxAnswer) {
        std::array<char, 4096> piece;
        const ssize_t size = ::recv(simulator.Get(), piece.data(), piece.size(), 0);
        if (size <= 0) return std::nullopt;
        answer.append(piece.data(), static_cast<std::size_t>(size));
        if (const std::size_t end = answer.find('\n'); end != std::string::npos) return answer.substr(0, end);
    }
    return std::nullopt;
}

/// @return the state, or nothing when it is no JSON object
std::string AskState(const std::string& path) {
    const std::string state = Exchange(path, "state").value_or("");
    const auto json = nlohmann::json::parse(state, nullptr, false);
    return json.is_object() ? state : "";
}

}  // namespace

MeterControl::MeterControl(std::string path, std::function<void()> news)
    : m_path(std::move(path)), m_news(std::move(news)), m_thread([this] { Run(); }) {}

MeterControl::~MeterControl() {
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

std::optional<std::uint64_t> MeterControl::Ask(std::string line) {
    const std::lock_guard lock(m_mutex);
    if (m_questions.size() >= kMaxQuestions) return std::nullopt;
    m_questions.emplace_back(++m_lastNumber, std::move(line));
    m_wake.notify_one();
    return m_lastNumber;
}

std::vector<MeterControl::Answer> MeterControl::TakeAnswers() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_answers, {});
}

std::string MeterControl::State() const {
    const std::lock_guard lock(m_mutex);
    return m_state;
}

void MeterControl::Run() {
    auto nextState = std::chrono::steady_clock::now();
    std::unique_lock lock(m_mutex);
    while (!m_stop) {
        if (!m_questions.empty()) {
            const auto [number, line] = std::move(m_questions.front());
            m_questions.pop_front();
            lock.unlock();
            std::optional<std::string> answer = Exchange(m_path, line);
            lock.lock();
            m_answers.push_back({number, line, std::move(answer)});
            nextState = std::chrono::steady_clock::now();  // what was asked may have changed it
        } else if (std::chrono::steady_clock::now() >= nextState) {
            lock.unlock();
            std::string state = AskState(m_path);
            lock.lock();
            m_state = std::move(state);
            nextState = std::chrono::steady_clock::now() + kStateInterval;
        } else {
            m_wake.wait_until(lock, nextState);
            continue;
        }
        lock.unlock();
        m_news();
        lock.lock();
    }
}

}  // namespace panel
