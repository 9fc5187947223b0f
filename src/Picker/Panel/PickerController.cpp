#include "PickerController.h"

#include "PopoverState.h"

namespace {
PopoverState placeholderState;
}

// Placeholder until the panel lands: the shell links against this.
PickerController::PickerController(PickerModel&, Preferences&, UserLibrary&, CopyService&, Paster&,
                                   QObject* parent)
    : QObject(parent)
{
}

PickerController::~PickerController() = default;

void PickerController::setTrayIconGeometry(std::function<QRect()>) {}
void PickerController::show(std::optional<PickerTab>) {}
void PickerController::hide() {}
void PickerController::toggle() {}
bool PickerController::isVisible() const
{
    return false;
}
QQuickWindow* PickerController::panel() const
{
    return nullptr;
}
PopoverState& PickerController::popoverState()
{
    return placeholderState;
}
void PickerController::openSettings() {}
void PickerController::startDrag(const QString&) {}
