#include "simulator/session/world.h"

#include <cerrno>

#include "simulator/meter/wire/link_client.h"
#include "simulator/session/descriptors.h"

int DisplayMain();  // the display's own

namespace session {
namespace {

constexpr int kInitialTaskPriority = 100;
constexpr Instant kCommandPatience = 1000;

World* theWorld = nullptr;

}  // namespace

World& TheWorld() { return *theWorld; }
void SetWorld(World& world) { theWorld = &world; }

bool IsRefused(OsCall call, std::string_view what) {
    if (!theWorld->Fails(call, what)) return false;
    errno = EIO;
    return true;
}

void PressKey(std::int32_t code, std::int32_t state) {
    const std::array<std::int32_t, 2> record = {code, state};
    const auto bytes = std::as_bytes(std::span(record));
    Descriptors::Instance().Keys()->inbox.push_back({Scheduler::Instance().Now(), {bytes.begin(), bytes.end()}});
}

std::optional<std::vector<std::byte>> CommandDisplay(std::string_view operation, std::span<const std::byte> payload,
                                                     std::uint32_t replySize) {
    const auto listener = Descriptors::Instance().Listener();
    if (listener == nullptr) return std::nullopt;
    Scheduler& scheduler = Scheduler::Instance();
    auto connection = std::make_shared<Endpoint>(Endpoint{.role = Role::FromMeter});
    connection->inbox.push_back({scheduler.Now(), meter::FrameOf(operation, payload, replySize)});
    connection->ended = true;  // the caller will be gone when the reply is whole
    listener->arrivals.push_back(connection);
    const Instant end = scheduler.Now() + kCommandPatience;
    scheduler.RunUntil(scheduler.Now());
    while (connection->sent.size() < replySize && scheduler.Now() < end) scheduler.RunUntil(scheduler.Now() + 1);
    if (connection->sent.size() < replySize) return std::nullopt;
    return connection->sent;
}

void StartDisplay() {
    Scheduler& scheduler = Scheduler::Instance();
    scheduler.Activate(scheduler.Create(kInitialTaskPriority, [] { DisplayMain(); }));
}

}  // namespace session
