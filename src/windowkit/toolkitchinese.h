#pragma once

// The toolkit's own texts in Chinese: the standard buttons of the message
// boxes ("确定", "是", "否") and the context menus of the text boxes speak
// the program's language whatever the user's locale is.

class QCoreApplication;

namespace toolkitchinese {

// Installs the toolkit's Chinese translations on the application; they stay
// with it until it ends. False when the translations are not installed on
// the machine: the toolkit then keeps its own English texts.
bool load(QCoreApplication& application);

} // namespace toolkitchinese
