#include "navigation/meter_access.h"

#include "navigation/password_handler.h"
#include "tests/bench/test_on.h"

namespace {

class MeterAccess : public PanelTest {
protected:
    static meterAccessClass& Access() { return meterAccessClass::getInstance(); }
};

TEST_F(MeterAccess, ReadsExtremesAsTextsEvenWhenTheyAreNotTerminated) {
    MinMaxBarData record{};
    record.minimum.valid.Set(1);
    record.minimumText.fill('1');
    record.maximumText.fill('2');
    record.present.valid.Set(9);
    record.presentText.fill('3');
    record.label.fill('L');
    meter().Answer("PQINTERFACE_getMinMaxBarData", record);
    MinMaxBarDisplay display;
    EXPECT_EQ(Access().readMinMaxBar(1, 2, 3, display), 0);
    EXPECT_EQ(std::u16string_view(display.minimum.text.data()), std::u16string(44, u'1'));
    EXPECT_EQ(std::u16string_view(display.maximum.text.data()), std::u16string(44, u'2'));
    EXPECT_EQ(std::u16string_view(display.present.text.data()), std::u16string(45, u'3'));
    EXPECT_EQ(std::u16string_view(display.label.data()), std::u16string(39, u'L'));
    std::array<PhasorDisplay, meterAccessClass::kPhasors> phasors;
    EXPECT_EQ(Access().readPhasors(phasors), 0);
    EXPECT_TRUE(display.IsValid()) << "the maximum counts as valid with the minimum";
}

TEST_F(MeterAccess, NoticesAnotherConnectionOnceAndASixthFailureInARow) {
    const auto connection = [](std::uint32_t id) { meter().Answer("DISPTSK_getConnectionId", id); };
    connection(7);
    EXPECT_TRUE(Access().isSameMeterConnection());
    connection(8);
    EXPECT_FALSE(Access().isSameMeterConnection());
    EXPECT_TRUE(Access().isSameMeterConnection());
    for (int round = 0; round < 2; ++round) {
        meter().FallSilent();
        for (int i = 0; i < 5; ++i) EXPECT_TRUE(Access().isSameMeterConnection());
        EXPECT_FALSE(Access().isSameMeterConnection());
    }
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(Access().isSameMeterConnection());
    meter().Recover();
    EXPECT_TRUE(Access().isSameMeterConnection());
    meter().FallSilent();
    EXPECT_TRUE(Access().isSameMeterConnection()) << "the failures before the success are forgotten";
}

class Password : public PanelTest {
protected:
    static PHC_passwordHandlerClass& Handler() { return PHC_passwordHandlerClass::getInstance(); }
};

TEST_F(Password, OpensALoginThatUseKeepsOpenAndTimeEnds) {
    meter().Answer("SECURITYINTERFACE_getFrontPanelAccessRights", std::array{0U, 1U});
    meter().Answer("SECURITYINTERFACE_verifyFrontPanelPassword", std::uint32_t{0});
    Handler().logout();
    EXPECT_EQ(Handler().checkAccess(), FrontPanelAccess::WithPassword);
    EXPECT_EQ(Handler().verify("USER", "1234"), kPasswordAccepted);
    Ticks(3599);
    EXPECT_EQ(Handler().checkAccess(), FrontPanelAccess::Granted);
    Ticks(3599);
    Handler().touch();
    Ticks(3599);
    EXPECT_EQ(Handler().checkAccess(), FrontPanelAccess::Granted);
    Ticks(3600);
    EXPECT_EQ(Handler().checkAccess(), FrontPanelAccess::WithPassword);
    EXPECT_EQ(meter().Calls("SECURITYINTERFACE_clearFrontPanelPassword"), 0) << "the meter is not told";
    EXPECT_EQ(Handler().verify("USER", "1"), kPasswordAccepted);
    Handler().logout();
    Handler().logout();
    EXPECT_EQ(meter().Calls("SECURITYINTERFACE_clearFrontPanelPassword"), 1) << "once, after a login";
    EXPECT_EQ(Handler().verify("USER", "1"), kPasswordAccepted);
    meter().Answer("SECURITYINTERFACE_verifyFrontPanelPassword", std::uint32_t{2});
    EXPECT_EQ(Handler().verify("USER", "x"), kPasswordRefused);
    EXPECT_EQ(Handler().checkAccess(), FrontPanelAccess::WithPassword) << "a failed try ends the login";
}

}  // namespace
