#include "power/steps/commands.h"

#include <utility>

namespace zps {

void Commands::Run(const std::function<void()>& command, OpenEntry entry) {
    if (!Door.Open()) return;
    Parts.Events.Run([&] {
        if (entry == OpenEntry::LeaveOpen || Fields.Commit()) command();
    });
}

void Commands::Connect(QAction& menu, std::function<void()> command) {
    QObject::connect(&menu, &QAction::triggered, &menu,
                     [this, command = std::move(command)] { Run(command); });
}

void Commands::Connect(QAbstractButton& button, std::function<void()> command, OpenEntry entry) {
    const auto clicked = [this, &button, command = std::move(command), entry] {
        if (!button.isEnabled()) return;       // pressed from outside, and disabled since
        const bool byKey = button.hasFocus();  // the mouse does not give it
        Run(command, entry);
        if (byKey && Parts.Controls.cmdFOCUS->hasFocus()) button.setFocus();
    };
    QObject::connect(&button, &QAbstractButton::clicked, &button, clicked);
}

}  // namespace zps
