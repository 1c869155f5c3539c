#pragma once

#include <QWidget>

namespace celestrix {

/// Qt's side of a control, by the name that the headers of services/ui/ use for it. The widget belongs to its parent.
struct ToolkitWidget {
  QWidget* widget;
};

}  // namespace celestrix
