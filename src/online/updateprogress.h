#pragma once

// The window side of the one-click update: a progress dialog over the main
// window that tells the stage and offers a cancel button, shown until the
// update has ended. The update runs in the event loop of the dialog, so the
// windows behind it stay painted.

class DrawUpdate;
class QWidget;

// Starts the update and returns once it has ended: done, failed, or cancelled
// by the button, Escape or the window's frame.
void runWithProgress(DrawUpdate& update, QWidget* parent);
