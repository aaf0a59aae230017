#include "simulator/session/descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace session {

Descriptors& Descriptors::Instance() {
    static auto* instance = new Descriptors;
    return *instance;
}

int Descriptors::Add(std::shared_ptr<Endpoint> endpoint) {
    const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (descriptor >= 0) m_endpoints[descriptor] = std::move(endpoint);
    return descriptor;
}

std::shared_ptr<Endpoint> Descriptors::Find(int descriptor) const {
    const auto found = m_endpoints.find(descriptor);
    return found != m_endpoints.end() ? found->second : nullptr;
}

int Descriptors::Close(int descriptor) {
    m_endpoints.erase(descriptor);
    return ::close(descriptor);
}

std::shared_ptr<Endpoint> Descriptors::Listener() const {
    const auto found =
        std::ranges::find_if(m_endpoints, [](const auto& entry) { return entry.second->role == Role::Listener; });
    return found != m_endpoints.end() ? found->second : nullptr;
}

ssize_t ReadFrom(Endpoint& endpoint, void* buffer, std::size_t bytes) {
    Scheduler& scheduler = Scheduler::Instance();
    const Instant deadline = endpoint.patience == kNever ? kNever : scheduler.Now() + endpoint.patience;
    const auto readable = [&] { return endpoint.IsReadable(scheduler.Now()); };
    while (!scheduler.Wait(readable, std::min(deadline, endpoint.NextDue()))) {
        if (scheduler.Now() < deadline) continue;
        errno = EAGAIN;
        return -1;
    }
    if (endpoint.inbox.empty()) return 0;
    Endpoint::Chunk& chunk = endpoint.inbox.front();
    const std::size_t count = std::min(bytes, chunk.bytes.size() - chunk.taken);
    if (count != 0) std::memcpy(buffer, chunk.bytes.data() + chunk.taken, count);
    chunk.taken += count;
    if (chunk.taken == chunk.bytes.size()) endpoint.inbox.pop_front();
    return static_cast<ssize_t>(count);
}

}  // namespace session
