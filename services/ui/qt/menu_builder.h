#pragma once

class QMenuBar;

namespace celestrix {

class MenuBar;

/// Fills the toolkit's menu bar with the items of ours, and makes them do what menu.h says.
void BuildMenuBar(QMenuBar& toolkitBar, const MenuBar& bar);

}  // namespace celestrix
