#pragma once

class QMenuBar;

namespace celestrix {

class MenuBar;

/// Fills Qt's menu bar with the items of `bar`, and makes them do what menu.h says.
void BuildMenuBar(QMenuBar& toolkitBar, const MenuBar& bar);

}  // namespace celestrix
