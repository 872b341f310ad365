#include "app/program.h"
#include "app/real_surroundings.h"
#include "controls/error_texts.h"

#include <QApplication>

int main(int /*argc*/, char** argv) {
    int wordsTaken = 1;  // the panel takes no command line
    QApplication application(wordsTaken, argv);
    zps::DressApplication();
    zps::RealSurroundings machine;
    zps::Program program(machine.All());
    try {
        program.StartUp();
    } catch (const zps::serial::PortError& error) {
        machine.Boxes.Show(nullptr, zps::StartMessageOf(error));
        return 1;
    }
    return QApplication::exec();
}
