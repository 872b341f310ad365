// The stages of the check one after another, each with a sign of how it stands.
#pragma once

#include "controls/sign_label.h"
#include "set_manual/check_progress.h"

#include <QWidget>

#include <array>

namespace zps {

class StageRail : public QWidget {
  public:
    StageRail();

    void Show(const CheckProgress& progress);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void ShowStage(CheckStage stage, StageState state);

    std::array<SignLabel*, CheckStageCount> Stages{};
};

}  // namespace zps
