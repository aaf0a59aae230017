#include "simulator/meter/model/security.h"

#include <algorithm>
#include <array>

namespace meter {
namespace {

struct User {
    std::string_view name;
    std::string_view password;
    bool mayChange;
};

constexpr auto kUsers = std::to_array<User>({{"USER", "0", true}, {"FACTORY", "0000", true}, {"GUEST", "0", false}});

}  // namespace

Verdict Security::LogIn(std::string_view user, std::string_view password) {
    m_loggedIn = false;
    const auto found = std::ranges::find(kUsers, user, &User::name);
    if (found == kUsers.end() || found->password != password) return Verdict::WrongPassword;
    if (!found->mayChange || !m_frontPanelAllowed) return Verdict::NotAllowed;
    m_loggedIn = true;
    return Verdict::Accepted;
}

}  // namespace meter
