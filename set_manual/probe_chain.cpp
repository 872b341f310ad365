#include "set_manual/probe_chain.h"

#include "source/numbers.h"
#include "source/step_frame.h"

#include <chrono>
#include <limits>
#include <memory>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {

constexpr std::int16_t MostRetries = 3;
constexpr auto RetryPause = 50ms;
constexpr auto DelayAfterLoad = 200ms;
constexpr auto DelayAfterChoice = 50ms;
constexpr auto ChainInterval = 100ms;
constexpr auto PendingEventsLimit = 100ms;

bool Failed(Reply result) {
    return result != Reply::Ack && result != Reply::Data;
}

// A rating as the supply tells it, in V or A.
double Rated(int tenths) {
    constexpr double CountsPerUnit = 10;
    return tenths / CountsPerUnit;
}

// Whether there is something to set, and the highest values that can be set, rounded as they are
// shown, fit the 16 bits that they have on the wire.
bool Usable(const RatingFields& told) {
    const auto fits = [](const Figure& shown, std::int32_t scale) {
        return SetPointCounts(shown.Value, scale) <= std::numeric_limits<std::uint16_t>::max();
    };
    Ratings ratings;
    ratings.SetMaxVolt(ToSingle(Rated(told.Volt)));
    ratings.SetMaxCurr(ToSingle(Rated(told.Curr)));
    return told.Volt != 0 && told.Curr != 0 &&
           fits(ratings.FormatVolt(ratings.MaxOvp()), ratings.VoltScale()) &&
           fits(ratings.FormatCurr(ratings.MaxCurr()), ratings.CurrScale());
}

}  // namespace

ProbeChain::ProbeChain(SOURCE& source, serial::Port& port, serial::EventLoop& loop,
                       Handlers& handlers, ProbeEvents events)
    : Source(source),
      Port(port),
      Loop(loop),
      Sender(source, port),
      Tell(std::move(events)),
      tmrSTART_ENQ(QStringLiteral("tmrSTART_ENQ"), DelayAfterLoad, handlers, TickMode::AtOnce),
      tmrZPS_Remote(QStringLiteral("tmrZPS_Remote"), ChainInterval, handlers, TickMode::AtOnce),
      tmrPower_Init(QStringLiteral("tmrPower_Init"), ChainInterval, handlers, TickMode::AtOnce),
      tmrSTART_DLE(QStringLiteral("tmrSTART_DLE"), ChainInterval, handlers, TickMode::AtOnce),
      FormAddr(source.SetAddr) {
    tmrSTART_ENQ.OnTick([this] { tmrSTART_ENQ_Timer(); });
    tmrZPS_Remote.OnTick([this] { tmrZPS_Remote_Timer(); });
    tmrPower_Init.OnTick([this] { tmrPower_Init_Timer(); });
    tmrSTART_DLE.OnTick([this] { tmrSTART_DLE_Timer(); });
    // A silent supply raises no event by itself: the frame that has gone out does.
    Port.OnReceive(serial::EventKind::InputAndOutput,
                   [this, &handlers] { handlers.Run([this] { comPOWER_OnComm(); }); });
}

void ProbeChain::SetAddress(std::int16_t address) {
    Source.SetAddr = address;
    if (FormAddr == address) return;
    FormAddr = Source.PowerAddr = address;
    Source.ForgetResult();
}

void ProbeChain::StartAfterLoad() {
    StartIn(DelayAfterLoad);
}

void ProbeChain::Restart() {
    Stop();
    ProbeStage = Stage::Asking;
    StartIn(DelayAfterChoice);
}

void ProbeChain::StartIn(std::chrono::milliseconds delay) {
    tmrSTART_ENQ.SetInterval(delay);
    StartSoon(tmrSTART_ENQ, CheckStage::Answer);
    Tell.Progress();
}

// The stage counts as running in the pause before it too.
void ProbeChain::StartSoon(Timer& timer, CheckStage stage) {
    Check.Begin(stage);
    timer.SetEnabled(true);
}

void ProbeChain::EndExchange() {
    ++ExchangeNumber;
    AnswerAwaited = false;
    InitialisationOut = false;
    Source.Settle();
    Check.GiveUp();
}

void ProbeChain::Stop() {
    EndExchange();
    for (Timer* timer : {&tmrSTART_ENQ, &tmrZPS_Remote, &tmrPower_Init, &tmrSTART_DLE}) {
        timer->SetEnabled(false);
    }
    Check.Reset();
    Tell.Progress();
}

void ProbeChain::Ask(Frame frame, std::int16_t replyFlag, CheckStage stage) {
    EndExchange();
    Sender.Send(std::move(frame), replyFlag);
    AnswerAwaited = true;
    Asked = stage;
    Check.Begin(stage);
    Tell.Progress();
}

void ProbeChain::ProbeEnq() {
    Ask(ProbeFrame(FormAddr, code::Enq, FormAddr), ExpectAck, CheckStage::Answer);
}
void ProbeChain::ProbeDle() {
    Ask(ProbeFrame(FormAddr, code::Dle, FormAddr), ExpectData, CheckStage::Ratings);
}

void ProbeChain::comPOWER_OnComm() {
    if (!AnswerAwaited) {  // these bytes answer nothing, or an exchange that has been ended
        Port.DiscardInput();
        return;
    }
    const unsigned exchange = ExchangeNumber;
    const std::size_t wanted = Source.ReplyFlag() == ExpectData ? DataLength : AckLength;
    const Bytes reply = GatherReply(Port, wanted, serial::WaitMode::RunEvents);
    if (exchange != ExchangeNumber) return;
    const Reply result = Judge(reply);
    Source.WasJudged(reply, result);
    Source.WasHandled();
    if (result == Reply::Data) TakeRatings(reply);
    if (Source.RetryCount() < MostRetries && Failed(result)) {
        Source.WillRetry();
        Port.Pause(RetryPause, serial::WaitMode::RunEvents);
        if (exchange == ExchangeNumber) Sender.TransmitFrame();
    } else {
        Finish(result);
    }
}

Reply ProbeChain::Judge(const Bytes& reply) {
    const Reply result =
        JudgeReply(reply, Source.ReplyFlag(), Source.PowerAddr, CheckByte::Wrapped);
    if (result != Reply::Data || !TellsUnknownRatings()) return result;
    const auto bytes = std::span(reply).first<DataLength>();
    const RatingFields ratings = ReadRatingFields(bytes);
    // With the output on the same bytes are a read-back.
    const bool outputOn = (ReadDataReply(bytes).Status & status::Output) != 0;
    return Usable(ratings) && !outputOn ? result : Reply::BadData;
}

bool ProbeChain::TellsUnknownRatings() const {
    return Source.SetAddr != Source.CheckedAddr();
}

void ProbeChain::TakeRatings(const Bytes& reply) {
    if (!TellsUnknownRatings()) return;
    const RatingFields ratings = ReadRatingFields(std::span(reply).first<DataLength>());
    Source.ReadFrom(Source.SetAddr, Port.Device());
    Tell.Ratings(Rated(ratings.Volt), Rated(ratings.Curr));
}

void ProbeChain::Finish(Reply result) {
    const bool lastAttempt = Source.RetryCount() >= MostRetries;
    const bool initialised = result == Reply::Ack && InitialisationOut;
    AnswerAwaited = false;
    Source.Settle();
    Check.End(!Failed(result));
    Tell.Result(result, Asked);
    if (initialised) Tell.FunctionsOff();
    if (result == Reply::Ack && !lastAttempt) MoveOn();
    Tell.Progress();
}

void ProbeChain::MoveOn() {
    switch (ProbeStage) {
        case Stage::Asking:
            StartSoon(tmrZPS_Remote, CheckStage::Remote);
            break;
        case Stage::GoingRemote:
            StartSoon(tmrPower_Init, CheckStage::Initialise);
            break;
        case Stage::Initialising:
            Tell.DataProbeReady();
            StartSoon(tmrSTART_DLE, CheckStage::Ratings);
            break;
        case Stage::Idle:
            break;
    }
}

void ProbeChain::tmrSTART_ENQ_Timer() {
    tmrSTART_ENQ.SetEnabled(false);
    ProbeStage = Stage::Asking;
    if (RunPendingEvents()) ProbeEnq();
}

void ProbeChain::tmrZPS_Remote_Timer() {
    tmrZPS_Remote.SetEnabled(false);
    ProbeStage = Stage::GoingRemote;
    Ask(ProbeFrame(FormAddr, code::Dc3, Source.PowerAddr), ExpectAck, CheckStage::Remote);
}

void ProbeChain::tmrPower_Init_Timer() {
    tmrPower_Init.SetEnabled(false);
    ProbeStage = Stage::Initialising;
    Ask(InitialisationFrame(FormAddr), ExpectAck, CheckStage::Initialise);
    InitialisationOut = true;
}

void ProbeChain::tmrSTART_DLE_Timer() {
    tmrSTART_DLE.SetEnabled(false);
    ProbeStage = Stage::Idle;
    if (RunPendingEvents()) ProbeDle();
}

bool ProbeChain::RunPendingEvents() {
    const unsigned exchange = ExchangeNumber;
    const auto reached = std::make_shared<bool>(false);
    Loop.Post([reached] { *reached = true; });  // behind everything that is pending
    Loop.RunUntil([&] { return *reached; }, serial::Clock::now() + PendingEventsLimit);
    return exchange == ExchangeNumber;
}

}  // namespace zps
