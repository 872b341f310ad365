// The time of a scripted line for what decides: it goes on only while a wait of the port or Pass
// moves it.
#pragma once

#include "source/timekeeper.h"
#include "tests/support/plain_event_loop.h"
#include "tests/support/scripted_port.h"

#include <vector>

namespace zps::tests {

class ScriptedTime : public Timekeeper {
  public:
    using milliseconds = std::chrono::milliseconds;

    // Both outlive this, and this its tickers.
    ScriptedTime(ScriptedLine& line, PlainEventLoop& loop) : Line(line), Loop(loop) {}

    serial::Clock::time_point Now() const override {
        return serial::Clock::time_point(std::chrono::hours(1) + Line.Waited());
    }
    std::unique_ptr<Ticker> MakeTicker(const std::string& /*name*/,
                                       milliseconds interval) override {
        return std::make_unique<ScriptedTicker>(*this, interval);
    }

    // Lets `span` pass: what arrives, its events and the ticks come each at its time. A tick that
    // became due in a wait of the port comes next, and once.
    void Pass(milliseconds span) {
        const milliseconds end = Line.Waited() + span;
        Loop.RunPosted();
        while (true) {
            ScriptedTicker* next = NextDue(end);
            const bool arrived = Line.Advance(next != nullptr ? next->Due : end);
            if (!arrived && next == nullptr) return;
            if (!arrived) next->Elapse();
            Loop.RunPosted();
        }
    }

  private:
    class ScriptedTicker : public Ticker {
      public:
        ScriptedTicker(ScriptedTime& time, milliseconds interval) : Time(time), Interval(interval) {
            Time.Tickers.push_back(this);
        }
        ~ScriptedTicker() override { std::erase(Time.Tickers, this); }
        void OnTick(std::function<void()> tick) override { Tick = std::move(tick); }
        bool Enabled() const override { return Runs; }
        void SetEnabled(bool enabled) override {
            if (enabled && !Runs) Due = Time.Line.Waited() + Interval;
            Runs = enabled;
        }
        void Elapse() {
            Due += Interval;
            if (Due < Time.Line.Waited()) Due = Time.Line.Waited() + Interval;
            Tick();
        }
        milliseconds Due{0};

      private:
        ScriptedTime& Time;
        milliseconds Interval;
        std::function<void()> Tick;
        bool Runs = false;
    };

    // The one that ticks first until `end`, if any does.
    ScriptedTicker* NextDue(milliseconds end) const {
        ScriptedTicker* next = nullptr;
        for (ScriptedTicker* ticker : Tickers) {
            const auto before = next == nullptr ? end + milliseconds(1) : next->Due;
            if (ticker->Enabled() && ticker->Due < before) next = ticker;
        }
        return next;
    }

    ScriptedLine& Line;
    PlainEventLoop& Loop;
    std::vector<ScriptedTicker*> Tickers;
};

}  // namespace zps::tests
