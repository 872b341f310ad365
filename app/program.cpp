#include "app/program.h"

#include "about/about.h"
#include "controls/panel_style.h"
#include "controls/shortcuts.h"
#include "controls/spoken_labels.h"
#include "controls/window_stack.h"
#include "record/record.h"
#include "test/test.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

#include <algorithm>
#include <chrono>

namespace zps {

using namespace std::chrono_literals;

Program::Program(const Surroundings& around)
    : Ports(around.Ports, Line, [this](int address) { return ScalesAt(address); }),
      Around{Ports, around.Loop, around.Boxes, around.Pointer, around.Browser} {}
Program::~Program() = default;

void Program::StartUp() {
    const SOURCE fresh;
    Source = fresh;
    Power = std::make_unique<POWER>(Source, Around);
    connect(Power.get(), &POWER::SettingsWanted, this, [this] { ShowPortWindow<SET_MANUAL>(); });
    connect(Power.get(), &POWER::TestWanted, this, [this] { ShowPortWindow<TEST>(); });
    connect(Power.get(), &POWER::AboutWanted, this, [this] { ShowAbout(); });
    connect(Power.get(), &POWER::LineRecordWanted, this, [this] { ShowRecord().ShowLine(); });
    connect(Power.get(), &POWER::HistoryWanted, this, [this] { ShowRecord().ShowHistory(); });
    connect(Power.get(), &POWER::Closed, this, [this] {
        About.reset();
        RecordWindow.reset();
    });
    Power->Form_Load();
    FitToScreen(*Power);
    Centre(*Power);
    Power->show();
    Power->HandOver();
    ShowPortWindow<SET_MANUAL>();
}

SET_MANUAL* Program::Settings() {
    return dynamic_cast<SET_MANUAL*>(OpenWindow.get());
}
TEST* Program::Test() {
    return dynamic_cast<TEST*>(OpenWindow.get());
}

template <class Window>
void Program::ShowPortWindow() {
    if (OpenWindow) return;  // it may be waiting for a reply: it is never replaced in place
    OpenWindow = std::make_unique<Window>(Source, *Power, Around);
    connect(OpenWindow.get(), &PortWindow::Closed, this, [this] { PortWindowClosed(); });
    FitToScreen(*OpenWindow);
    StandAbove(*OpenWindow, *Power);
    OpenWindow->Form_Load();
    OpenWindow->show();
    OpenWindow->activateWindow();
    if (About) About->setEnabled(true);  // its parent, the main window, has disabled it too
}

void Program::PortWindowClosed() {
    ClosedWindows.push_back(std::move(OpenWindow));
    DropClosed();
}

// Never at once: the window is still inside its own closing, and perhaps inside a wait.
void Program::DropClosed() {
    QTimer::singleShot(20ms, this, [this] {
        std::erase_if(ClosedWindows, [](const auto& window) { return !window->Busy(); });
        if (!ClosedWindows.empty()) DropClosed();
    });
}

void Program::ShowAbout() {
    if (!About) {
        About = std::make_unique<frmAbout>(Power.get(), platform::FindSystemInformationTool(),
                                           Around.Boxes);
    }
    About->show();
    About->raise();
    About->activateWindow();
}

// Beside the others, and of no owner: no window that is disabled disables it, or covers it for
// good.
RECORD& Program::ShowRecord() {
    if (!RecordWindow) {
        RecordWindow = std::make_unique<RECORD>(Line, Power->Happened());
        RecordWindow->SetFoot([this] { return Power->LinkText(); });
        FitToScreen(*RecordWindow);
    }
    RecordWindow->show();
    RecordWindow->raise();
    RecordWindow->activateWindow();
    return *RecordWindow;
}

Scales Program::ScalesAt(int address) const {
    if (!Source.KnownAt(static_cast<std::int16_t>(address))) return {};
    return {Source.VoltScale(), Source.CurrScale()};
}

namespace {

// Of the toolkit's own words, in context menus and for screen readers. English where the system has
// no Korean ones.
void SpeakKorean() {
    auto* words = new QTranslator(qApp);
    const auto folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (words->load(QStringLiteral("qtbase_ko"), folder)) QApplication::installTranslator(words);
}

}  // namespace

void DressApplication() {
    QApplication::setApplicationName(QStringLiteral("ZPS-RS232"));
    QApplication::setApplicationVersion(QStringLiteral(ZPS_VERSION));
    // The desktop entry of this name tells a Wayland desktop title and icon.
    QApplication::setDesktopFileName(QStringLiteral("zps-rs232"));
    QIcon icon;
    for (const int size : {16, 32, 48, 128, 256})
        icon.addFile(QStringLiteral(":/icons/zps-rs232-%1.png").arg(size), {size, size});
    QApplication::setWindowIcon(icon);
    // A desktop may have put off telling its own font and style, which then would replace these.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    QApplication::setStyle(new PanelStyle);
    QFont face = QApplication::font();
    face.setFamilies({QStringLiteral("Gulim"), QStringLiteral("굴림"),
                      QStringLiteral("Malgun Gothic"), QStringLiteral("NanumGothic"),
                      QStringLiteral("Noto Sans CJK KR"), QStringLiteral("UnDotum")});
    QApplication::setFont(face);
    SpeakKorean();
    SpeakLabels();
    SpeakPortWindows();
    IgnoreHeldKeys();
}

}  // namespace zps
