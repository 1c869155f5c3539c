#pragma once

#include <QWidget>

namespace celestrix {

/// What the headers of services/ui/ call Qt's side of a control. The widget belongs to its parent.
struct ToolkitWidget {
  QWidget* widget;
};

}  // namespace celestrix
