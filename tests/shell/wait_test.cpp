#include "platform/timers.h"
#include "shell/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using ::testing::InSequence;
using ::testing::Return;
using ::testing::Truly;

struct ScriptedTimers : Timers {
    MOCK_METHOD(I4, CreateWaitableTimerA, (I4, const AnsiText&), (override));
    MOCK_METHOD(I4, SetWaitableTimer, (I4, const FileTime&, I4, I4), (override));
    MOCK_METHOD(I4, MsgWaitForMultipleObjects, (I4, const I4&, I4, I4, I4), (override));
    MOCK_METHOD(I4, CloseHandle, (I4), (override));
};

struct WaitSteps : ::testing::Test, TestPlatform {
    WaitSteps() { services.componentFacts.fileName = u"TOV\u00C9RA"; }

    void expectTimer(I4 handle, I4 error) {
        const auto isNamed = Truly([](const AnsiText& name) { return name.bytes == "TOV\xC9RATimer"; });
        EXPECT_CALL(timers, CreateWaitableTimerA(-1, isNamed)).WillOnce([=](auto&&...) {
            lastError() = error;
            return handle;
        });
    }
    void expectWait(I4 result) {
        EXPECT_CALL(timers, MsgWaitForMultipleObjects(1, 7, 0, -1, 255)).WillOnce(Return(result));
        EXPECT_CALL(services, pumpMessages());
    }

    ::testing::StrictMock<ScriptedTimers> timers;
    Platform ours = platform.with(timers);
    InSequence order;
};

TEST_F(WaitSteps, OfAFreshTimer) {
    expectTimer(7, 0);
    EXPECT_CALL(timers, SetWaitableTimer(7, FileTime{0xFFFFFFFF, 0xFFFFFFFF}, 0, 0)).WillOnce(Return(0));
    EXPECT_CALL(timers, SetWaitableTimer(7, FileTime{0xFF676980, 0xFFFFFFFF}, 0, 0)).WillOnce(Return(0));
    expectWait(1);
    expectWait(258);
    expectWait(0);
    EXPECT_CALL(timers, CloseHandle(7)).WillOnce(Return(0));
    expectCall(objectOn<Cls_Windows>(ours), gives(Empty(), u"Wait", I4{1}));
}

TEST_F(WaitSteps, DueTimesOfAnExistingTimer) {
    const std::tuple<I4, FileTime> rows[] = {
        {0, {0, 0}},
        {300, {0x4D2FA200, 0xFFFFFFFF}},
        {430, {0xFFB33500, 0xFFFFFFFE}},
        {3600, {0x9E3B9800, 0xFFFFFFF7}},
        {-1, {10'000'000, 0}},
        {2147483647, FileTime::ofCount(-21'474'836'470'000'000)},
        {-2147483647 - 1, FileTime::ofCount(21'474'836'480'000'000)},
    };
    for (const auto& [seconds, due] : rows) {
        expectTimer(7, timerExists);
        EXPECT_CALL(timers, SetWaitableTimer(7, due, 0, 0)).WillOnce(Return(1));
        expectWait(0);
        EXPECT_CALL(timers, CloseHandle(7)).WillOnce(Return(1));
        Cls_Windows(ours).Wait(seconds);
    }
}

TEST_F(WaitSteps, EndAfterOnePumpWhenTheTimerOrTheWaitFails) {
    expectTimer(0, 8);
    EXPECT_CALL(services, pumpMessages());
    Cls_Windows(ours).Wait(300);
    expectTimer(7, timerExists);
    EXPECT_CALL(timers, SetWaitableTimer).WillOnce(Return(0));
    expectWait(-1);
    EXPECT_CALL(timers, CloseHandle(7)).WillOnce(Return(1));
    Cls_Windows(ours).Wait(300);
}

TEST_F(WaitSteps, GiveTheTimerBackWhenAHandlerOfTheHostFails) {
    expectTimer(7, timerExists);
    EXPECT_CALL(timers, SetWaitableTimer).WillOnce(Return(1));
    EXPECT_CALL(timers, MsgWaitForMultipleObjects).WillOnce(Return(1));
    EXPECT_CALL(services, pumpMessages()).WillOnce([] { raise(ErrorNumber::Overflow); });
    EXPECT_CALL(timers, CloseHandle(7)).WillOnce(Return(1));
    EXPECT_EQ(errorOf([&] { Cls_Windows(ours).Wait(300); }), 6);
}

}  // namespace
}  // namespace tovera::testing
