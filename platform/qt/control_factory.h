// From a row of a design table to the control.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/controls.h"
#include "platform/design.h"

namespace varno {

struct NewControl {
    std::unique_ptr<Component> component;
    QWidget* widget;  // null for a timer
};

NewControl MakeControl(const ControlDesign& design, QWidget* parent);

}  // namespace varno
