#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <vector>

#include "simulator/panel/server.h"
#include "tests/simulator/panel/emulated_board.h"
#include "tests/simulator/panel/http_client.h"

/// A board with its server on a free port.
class PanelServer : public EmulatedBoard {
protected:
    void SetUp() override {
        EmulatedBoard::SetUp();
        Serve("");
        m_keys = Descriptor(::open((m_root / "buttons").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    }
    void TearDown() override {
        m_server.reset();
        EmulatedBoard::TearDown();
    }

    void Serve(const std::string& meterControl) {
        m_server = std::make_unique<panel::Server>(board(), 0, meterControl);
    }
    HttpClient Client() { return HttpClient(m_server->Port()); }
    HttpClient::Reply Ask(const std::string& method, const std::string& target, const std::string& body = {},
                          const std::string& extra = {}) {
        return Client().Ask(method, target, body, extra);
    }
    std::string Host() const { return "Host: 127.0.0.1:" + std::to_string(m_server->Port()) + "\r\n"; }
    nlohmann::json State() { return nlohmann::json::parse(Ask("GET", "/state").body); }

    void WriteFrame(char value) {
        std::fstream frame(m_root / "db9000_fb", std::ios::in | std::ios::out | std::ios::binary);
        frame << std::string(panel::kFrameBytes, value);
    }

    /// The key records that come, as many as expected, and then what else there is.
    std::vector<panel::KeyRecord> Keys(std::size_t count) {
        std::vector<panel::KeyRecord> records;
        panel::KeyRecord record{};
        Eventually([&] {
            while (::read(m_keys.Get(), &record, sizeof record) == sizeof record) records.push_back(record);
            return records.size() >= count;
        });
        return records;
    }

    std::unique_ptr<panel::Server> m_server;
    Descriptor m_keys;
};
