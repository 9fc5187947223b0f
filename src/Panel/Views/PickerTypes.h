#pragma once

#include "Panel/PickerController.h"
#include "Panel/PopoverState.h"
#include "Picker/PickerModel.h"
#include "Picker/PickerResultsModel.h"
#include "State/Preferences.h"

#include <QtQml/qqml.h>

// The types the picker's views are bound to, declared for QML here so that
// the layers they live in stay free of QML. None is made from QML: the panel
// controller hands its model, popover state and itself to the root view.

struct PickerModelForeign {
    Q_GADGET
    QML_FOREIGN(PickerModel)
    QML_NAMED_ELEMENT(PickerModel)
    QML_UNCREATABLE("the panel controller owns the model")
};

struct PickerResultsModelForeign {
    Q_GADGET
    QML_FOREIGN(PickerResultsModel)
    QML_NAMED_ELEMENT(PickerResultsModel)
    QML_UNCREATABLE("PickerBindings makes the results model")
};

struct PreferencesForeign {
    Q_GADGET
    QML_FOREIGN(Preferences)
    QML_NAMED_ELEMENT(Preferences)
    QML_UNCREATABLE("the views read the preferences through the model")
};

struct PickerControllerForeign {
    Q_GADGET
    QML_FOREIGN(PickerController)
    QML_NAMED_ELEMENT(PickerController)
    QML_UNCREATABLE("one controller owns the panel")
};

struct PopoverStateForeign {
    Q_GADGET
    QML_FOREIGN(PopoverState)
    QML_NAMED_ELEMENT(PopoverState)
    QML_UNCREATABLE("the panel controller owns the popover state")
};
