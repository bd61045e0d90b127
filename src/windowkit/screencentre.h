#pragma once

// A window that opens in the middle of the screen, its frame included.

class QWidget;

namespace screencentre {

// Centres `window` on its screen when it first shows. The window system
// frames a window only once it is shown, so the window is placed by its own
// size first and set right once, when its frame has come; after that the
// user may move it where they like.
void onFirstShow(QWidget* window);

} // namespace screencentre
