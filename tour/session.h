// The guided session: a day's work with the panel on a simulated supply of 150 V and 10 A, through
// every state that an operator meets.
#pragma once

#include "app/real_surroundings.h"
#include "simulator/line.h"
#include "tour/guide.h"

#include <QPalette>
#include <QSize>
#include <QString>

namespace zps::tour {

// The colours of a dark desktop.
QPalette DarkDesktop();

class Session {
  public:
    // The links COMn are made and looked for where the environment says; the application has been
    // dressed. The main window is made `size` large where it is given: an off-screen display is
    // smaller than people's.
    explicit Session(Guide::Look look, QSize size = {});

    // Works through it; whether everything came out.
    bool Work();

  private:
    void Connect();
    void ProgramSteps();
    void RunOutput();
    void LoseTheLine();
    void Trip();
    void ReadTheRecord();
    void RunSequence();
    bool IsSent(int step);
    void Select(int step);
    void SwitchOutput(bool on);
    void TestLink();
    void ShowAbout();
    void ChooseAnotherAddress();
    void FailTheCheck();
    void ComeBack();
    void PasteTable();
    void End();

    // What a label of the main window or of another shows.
    QString Text(const char* label);
    static QString Text(const QWidget& window, const char* label);
    SET_MANUAL& OpenSettings();
    void ChooseAddress(int address);
    bool RatingsCome();
    void CloseSettings();

    simulator::Line Wire;
    simulator::PortLink Link;
    RealSurroundings Machine;
    Program Panel;
    Guide Hands;
    QSize Size;
};

}  // namespace zps::tour
