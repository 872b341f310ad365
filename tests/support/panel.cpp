#include "tests/support/panel.h"

#include <iostream>

namespace zps::tests {

Answer ScriptedBoxes::Show(QWidget* /*parent*/, const Message& message) {
    Shown.push_back(message);
    if (WhileUp) WhileUp(message);
    if (message.Buttons == MessageButtons::Ok) return Answer::Ok;
    if (Answers.empty()) return Answer::No;
    const Answer answer = Answers.front();
    Answers.pop_front();
    return answer;
}

void Panel::Type(const char* field, const QString& text) {
    auto& box = Get<QLineEdit>(field);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
}

bool Panel::WaitForDataResult(const QString& caption, std::chrono::milliseconds limit) {
    const auto& label = GetSetting<QLabel>("lblZPS_DLE");
    return WaitFor([&] { return label.text() == caption; }, limit);
}

bool SimulatedPanel::Identify() {
    Run.StartUp();
    const auto failed = [this](const char* result) {
        return GetSetting<QLabel>(result).text().contains(QStringLiteral("에라"));
    };
    // On a busy machine the line may answer too late for the check, which is made again then.
    const bool identified = WaitFor([&] {
        if (failed("lblZPS_ENQ") || failed("lblZPS_DLE"))
            GetSetting<QAbstractButton>("optPORT_1").click();
        return GetSetting<QLabel>("lblZPS_DLE").text() == QStringLiteral("통신ok = DATA수신!!!");
    });
    if (!identified) {
        for (const char* result : {"lblZPS_ENQ", "lblZPS_DLE"})
            std::cout << qPrintable(GetSetting<QLabel>(result).text()) << '\n';
        std::cout << qPrintable(Boxes.LastText()) << std::endl;
    }
    return identified;
}

bool SimulatedPanel::Open() {
    if (!Identify()) return false;
    Run.Settings()->close();
    // The step start sends the top step, and its answer asks for one status poll.
    return QTest::qWaitForWindowActive(&Main()) && WaitFor([this] {
               return Source().RxResult() == Reply::Data && !Source().RxBusy() &&
                      Source().StepFlag(0);
           }) &&
           (Frames(), true);
}

std::vector<Bytes> SimulatedPanel::Frames() {
    std::vector<Bytes> frames;
    for (const auto& frame : Line().TakeReceived()) {
        if (frame.size() != 3 || frame[1] != code::Dle) frames.push_back(frame);
    }
    return frames;
}

}  // namespace zps::tests
