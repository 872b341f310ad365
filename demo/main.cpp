#include "app/program.h"
#include "app/real_surroundings.h"
#include "demo/marked_titles.h"
#include "demo/simulated_supply.h"
#include "demo/supply_menu.h"

#include <QApplication>
#include <QMenuBar>

int main(int /*argc*/, char** argv) {
    int wordsTaken = 1;  // as the panel, it takes no command line
    QApplication application(wordsTaken, argv);
    zps::DressApplication();
    // Desktops keep its windows apart from the panel's.
    QApplication::setApplicationName(QStringLiteral("ZPS-RS232-demo"));
    QApplication::setDesktopFileName(QStringLiteral("zps-demo"));

    const zps::demo::MarkedTitles marks;
    zps::demo::SimulatedSupply supply;
    zps::RealSurroundings machine(supply);
    zps::Program program(machine.All());
    program.StartUp();
    zps::demo::AddSupplyMenu(*program.Main().menuBar(), supply.Line(), supply.Address);
    return QApplication::exec();
}
