#include "power/steps/table_menu.h"

#include "controls/copy_text.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

namespace zps {

TableMenu::TableMenu(PowerParts& parts, Commands& commands, Surround around)
    : Parts(parts),
      Ways(commands),
      Around(std::move(around)),
      Pasted(Parts.Source, Around.Held),
      Uploads(Around.Time, {Parts.Source, Around.Held, Around.AnswerDue,
                            [this] { return Around.Rows.CurStep(); },
                            [this](int step) { Around.Upload.Send(step); },
                            [this] { return Around.Output() == OutputState::Off; }}),
      Progress(Parts.Window, [this] { Parts.Events.Run([this] { Uploads.Cancel(); }); }),
      Range(new CopyRange(Parts.Window, [this](int first, int last) {
          Ways.Run([=, this] { Copy(first, last); }, Commands::OpenEntry::LeaveOpen);
      })) {
    const PowerControls& c = Parts.Controls;
    Ways.Connect(*c.mnuData_Copy_All, [this] { Copy(0, StepCount - 1); });
    Ways.Connect(*c.mnuData_Copy_Visible,
                 [this] { Copy(Around.Rows.TopStep(), Around.Rows.StepOf(RowCount - 1)); });
    Ways.Connect(*c.mnuData_Copy_Range, [this] { mnuData_Copy_Range_Click(); });
    Ways.Connect(*c.mnuData_Paste, [this] { mnuData_Paste_Click(); });
    Ways.Connect(*c.mnuData_Undo, [this] { mnuData_Undo_Click(); });
    Ways.Connect(*c.mnuData_Send, [this] { mnuData_Send_Click(); });
    Uploads.OnProgress([this](const SendAll::Report& report) { Progress.Show(report); });
    Uploads.OnEnd([this](const SendAll::Report& report) { SendingEnded(report); });
}

bool TableMenu::May(TableJob job) {
    TableState state{.RatingsKnown = Parts.Source.RatingsKnown(),
                     .Output = Around.Output(),
                     .Remote = Around.Remote()};
    if (const auto row = Around.Lock.EditedRow()) state.EditedStep = Around.Rows.StepOf(*row);
    const auto objection = Objection(job, state);
    if (objection) Tell(*objection);
    return !objection;
}

void TableMenu::Tell(const Message& message) {
    if (Around.Output() == OutputState::On)
        Around.Happened.Note(EventKind::NotDone, InOneLine(message));
    else
        Parts.Boxes.Show(&Parts.Window, message);
}

void TableMenu::Copy(int first, int last) {
    CopyText(QByteArray::fromStdString(TableText(Parts.Source, first, last)));
    Parts.Controls.fraSTEPLEGEND->Tell(CopiedText(first, last));
}

void TableMenu::mnuData_Copy_Range_Click() {
    Range->Ask(Around.Rows.TopStep(), Around.Rows.StepOf(RowCount - 1));
}

void TableMenu::mnuData_Paste_Click() {
    if (!May(TableJob::Paste)) return;
    const QString text = QGuiApplication::clipboard()->text();
    if (text.size() > static_cast<qsizetype>(LongestTable)) return Tell(PasteRefusal(TooLarge{}));
    const ReadSteps read = ReadTable(text.toStdString(), Parts.Source, Around.Rows.TopStep());
    if (const auto* values = std::get_if<std::vector<NewValue>>(&read)) return Paste(*values);
    if (const auto* bad = std::get_if<BadCell>(&read)) {
        Tell(PasteRefusal(*bad, Parts.Source));
    } else if (std::holds_alternative<Ambiguous>(read)) {
        Tell(PasteRefusal(Ambiguous{}));
    } else {
        Tell(PasteRefusal(TooLarge{}));
    }
}

void TableMenu::Paste(const std::vector<NewValue>& values) {
    if (values.empty()) return Tell(NothingToPaste());
    const auto changed = Pasted.Store(values);
    ShowChanged(changed);
    Parts.Controls.fraSTEPLEGEND->Tell(PastedText(static_cast<int>(values.size() / StepValueCount),
                                                  static_cast<int>(changed.count())));
}

void TableMenu::mnuData_Undo_Click() {
    if (!May(TableJob::Undo)) return;
    if (!Pasted.CanUndo()) return Tell(NothingToUndo());
    const auto changed = Pasted.Undo();
    ShowChanged(changed);
    Parts.Controls.fraSTEPLEGEND->Tell(UndoneText(static_cast<int>(changed.count())));
}

void TableMenu::ShowChanged(const std::bitset<StepCount>& steps) {
    const int selected = Around.Rows.CurStep();
    Around.Rows.FillFields();
    if (steps.test(static_cast<std::size_t>(selected))) Around.Shown.ShowStep(selected);
}

void TableMenu::mnuData_Send_Click() {
    if (!May(TableJob::Send)) return;
    if (Uploads.Unsent().empty()) return Tell(NothingToSend());
    Around.CallOffStart();
    Shut.emplace(Around.Door);
    Uploads.Start();
}

void TableMenu::SendingEnded(const SendAll::Report& report) {
    Shut.reset();
    Progress.Close();
    const auto trouble = SendingTrouble(report);
    if (!trouble) Parts.Controls.fraSTEPLEGEND->Tell(SentText(report));
    Around.Happened.Note(trouble ? EventKind::NotDone : EventKind::Switched, SendingEvent(report));
    if (trouble) Tell(*trouble);
}

void TableMenu::LetIn(const std::function<void()>& command) {
    Shut.reset();
    Ways.Run(command);
    if (Sending()) Shut.emplace(Around.Door);
}

void TableMenu::CallOff() {
    Uploads.CallOff();
    Shut.reset();
    Progress.Close();
}

}  // namespace zps
