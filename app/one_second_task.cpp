#include "app/one_second_task.h"

#include "app/alarm_indicator.h"
#include "app/panel_hardware.h"
#include "platform/task.h"
#include "rda/meter_operations.h"

namespace {

constexpr int kPriority = 194;
constexpr std::size_t kStack = 4096;
constexpr float kNoReading = -500.0F;  // degrees

float lastTemperature = kNoReading;
os::TaskId oneSecondTask = 0;

void ReportTemperature() {
    std::int32_t thousandths = 0;
    const float degrees =
        VEKHWIF_getTemperature(thousandths) == 0 ? static_cast<float>(thousandths) / 1000.0F : kNoReading;
    if (degrees == lastTemperature) return;
    lastTemperature = degrees;
    static_cast<void>(DISPTSK_setVekTemperature(degrees));
}

int OneSecondTask(os::TaskArgument) {
    for (;;) {
        oneSecondUpdate();
        os::taskDelay(os::sysClkRateGet());
    }
}

}  // namespace

void oneSecondUpdate() {
    alarmIndicatorUpdate();
    ReportTemperature();
}

void startOneSecondTask() {
    if (oneSecondTask != 0) return;
    lastTemperature = kNoReading;
    const os::TaskId task =
        os::taskCreate("tDispOneSecond", kPriority, os::kTaskFloatingPoint, kStack, OneSecondTask, 0);
    if (task == os::kTaskError) return;
    oneSecondTask = task;
    os::taskActivate(task);
}
