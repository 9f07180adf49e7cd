#include <ctime>
#include <functional>

#include "support/test.h"

namespace {

KOVAEventBus& bus() { return KOVAEventBus::GetEventBus(); }

/// Adds its letter to a common log, then does something.
class Letter : public KOVAEventListener {
public:
    Letter(std::string& log, char letter) : log_(log), letter_(letter) {}
    ~Letter() override { bus().RemoveListener(this); }
    void HandleEvent(KOVAEvent&) override {
        log_ += letter_;
        if (then) then();
    }
    std::function<void()> then;

private:
    std::string& log_;
    char letter_;
};

class TimedEvent : public KOVAEvent {
public:
    TimedEvent() : KOVAEvent("TimedEvent", KOVA_LEVEL_INFO) {}
    bool IsTimed() override { return true; }
};

class EventBus : public testing::Test {
protected:
    std::string fire() {
        log.clear();
        KOVAEvent event("TestEvent", 50);
        KOVAEventBus::Fire(event);
        return log;
    }

    std::string log;
    Letter a{log, 'a'}, b{log, 'b'}, c{log, 'c'}, d{log, 'd'};
};

TEST_F(EventBus, DeliversOnceInOrderOfRegistration) {
    EXPECT_EQ(fire(), "");
    for (KOVAEventListener* listener : {&b, &a, &b, &c}) bus().AddListener(listener);
    bus().AddListener(nullptr);
    bus().RemoveListener(nullptr);
    bus().RemoveListener(&d);
    EXPECT_EQ(fire(), "bac");
    bus().RemoveListener(&b);
    EXPECT_EQ(fire(), "ac");
    bus().AddListener(&b);
    EXPECT_EQ(fire(), "acb");
}

TEST_F(EventBus, ListenersComeAndGoWhileItDelivers) {
    for (KOVAEventListener* listener : {&a, &b, &c}) bus().AddListener(listener);
    a.then = [&] {
        bus().RemoveListener(&a);
        bus().RemoveListener(&b);
        bus().AddListener(&d);
        bus().AddListener(&b); // anew: not before the next event
    };
    EXPECT_EQ(fire(), "ac");
    EXPECT_EQ(fire(), "cdb");
    c.then = [&] {
        c.then = nullptr;
        std::vector<Letter*> crowd;
        for (int i = 0; i < 50; ++i) { // moves the bus's entries
            crowd.push_back(new Letter(log, 'x'));
            bus().AddListener(crowd.back());
        }
        for (Letter* letter : crowd) delete letter;
    };
    EXPECT_EQ(fire(), "cdb");
    EXPECT_EQ(fire(), "cdb");
}

TEST_F(EventBus, EventsWithinEvents) {
    for (KOVAEventListener* listener : {&a, &b, &c}) bus().AddListener(listener);
    a.then = [&] {
        a.then = nullptr;
        bus().RemoveListener(&b);
        KOVAEvent inner("Inner", 50);
        KOVAEventBus::Fire(inner);
        bus().AddListener(&d);
    };
    EXPECT_EQ(fire(), "aacc");
    EXPECT_EQ(fire(), "acd");
}

TEST_F(EventBus, SurvivesAListenerThatThrows) {
    bus().AddListener(&a);
    bus().AddListener(&b);
    a.then = [&] {
        bus().RemoveListener(&a);
        throw 1;
    };
    EXPECT_THROW(fire(), int);
    EXPECT_EQ(fire(), "b");
}

TEST_F(EventBus, StampsTimedEventsOnly) {
    long time = -1;
    long clock = -1;
    KOVAEvent plain("Plain", 50);
    TimedEvent timed;
    KOVAEventBus::Fire(plain);
    EXPECT_TRUE(plain.GetTime(time) == 0x01000001 && plain.GetClock(clock) == 0x01000001);
    EXPECT_EQ(time + clock, 0); // what is stored comes all the same
    long const before = static_cast<long>(std::time(nullptr));
    KOVAEventBus::Fire(timed);
    EXPECT_TRUE(timed.GetTime(time) == 0 && timed.GetClock(clock) == 0);
    EXPECT_TRUE(time >= before && time <= before + 60 && clock >= 0) << time << ' ' << clock;
    EXPECT_TRUE(plain.SetClock(before) == 0 && plain.GetTime(time) == 0); // one flag for both
}

TEST(Event, NamesAndKinds) {
    char name[] = "TestEvent";
    KOVAEvent event(name, KOVA_LEVEL_INFO);
    name[0] = 'X'; // the event has its own copy
    EXPECT_TRUE(event.IsA("TestEvent") && !event.IsA("testevent") && !event.IsA(nullptr));
    EXPECT_TRUE(event.IsKindOf("KOVAEvent") && !event.IsKindOf("TestEvent") && !event.IsKindOf(nullptr));
    EXPECT_EQ(std::string(event.GetEventName()) + event.GetTypeName(), "TestEventKOVAEvent");
    for (char const* none : {static_cast<char const*>(nullptr), ""}) {
        KOVAEvent nameless(none, 10);
        KOVAObject object(none);
        EXPECT_TRUE(nameless.GetEventName() == nullptr && object.GetTypeName() == nullptr);
        EXPECT_FALSE(nameless.IsA("") || nameless.IsA(nullptr) || object.IsKindOf(""));
    }
    KOVAObject* object = new KOVAEvent("x", 10);
    DeleteKOVAObject(object);
    EXPECT_EQ(object, nullptr);
}

TEST(Event, LevelKeywords) {
    std::pair<char const*, int> const rows[] = {
        {"ALL", 0},  {"ABORT", 90},  {"DEBUG", 10}, {"ERROR", 80}, {"INFO", 50}, {"NONE", 999}, {"VERBOSE", 30},
        {"Info", 7}, {"WARNING", 7}, {"", 7},       {" INFO", 7},  {"INFO ", 7}, {"ALLE", 7},   {"Z", 7}};
    for (auto const& [keyword, level] : rows) EXPECT_EQ(KOVAEvent::GetLevel(KOVAString(keyword), 7), level) << keyword;
    EXPECT_EQ(KOVAEvent::GetLevel(KOVAString(), KOVA_LEVEL_NONE), KOVA_LEVEL_NONE);
}

} // namespace
