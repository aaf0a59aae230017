#include "tests/trust/bad_meter.h"

#include <string>

#include "platform/task.h"

namespace {

constexpr int kConnectTicks = 2000;  // what the display waits for a connection

}  // namespace

void BadMeterStage::Begin(const Misdeed& misdeed) {
    m_misdeed = &misdeed;
    if (misdeed.restarts) Execute("restart");
    Execute("fault " + std::string(misdeed.fault));
}

void BadMeterStage::End() {
    m_misdeed = nullptr;
    Execute("fault none");
}

bool BadMeterStage::Fails(session::OsCall call, std::string_view) {
    if (call != session::OsCall::Connect || m_misdeed == nullptr || !m_misdeed->swallowsConnects) return false;
    os::taskDelay(kConnectTicks);
    return true;
}
