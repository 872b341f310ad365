#include "platform/pointer_confinement.h"

namespace zps::platform {
namespace {

class NoPointerConfinement : public PointerConfinement {
  public:
    void Confine(QWidget&) override {}
    void Release() override {}
};

}  // namespace

std::unique_ptr<PointerConfinement> MakePointerConfinement() {
    return std::make_unique<NoPointerConfinement>();
}

}  // namespace zps::platform
