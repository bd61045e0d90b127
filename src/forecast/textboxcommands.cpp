#include "forecast/textboxcommands.h"

#include "forecast/richtextbox.h"
#include "forecast/textfiles.h"
#include "windowkit/programstyle.h"

#include <QLabel>
#include <QPushButton>

namespace textboxcommands {

namespace {

constexpr int captionHeight = 20;
constexpr int captionGap = 4;
constexpr int buttonGap = 10;
constexpr int buttonHeight = 30;

} // namespace

void clear(RichTextBox& box)
{
    box.setText(QString());
}

void selectAll(RichTextBox& box)
{
    box.setSelStart(0);
    box.setSelLength(box.Text().size());
    box.setFocus();
}

void importInto(FileDialogs& dialogs, RichTextBox& box)
{
    if (const std::optional<QString> text = textfiles::importText(dialogs))
        box.setText(*text);
}

void saveFrom(FileDialogs& dialogs, const RichTextBox& box)
{
    textfiles::saveText(dialogs, box.Text());
}

RichTextBox* box(QWidget* parent, const char* name)
{
    auto* control = new RichTextBox(parent);
    control->setObjectName(QLatin1String(name));
    control->setFont(programstyle::serif(12));
    control->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    return control;
}

void placeColumn(QLabel* caption, RichTextBox* box, const std::array<QPushButton*, 3>& buttons, const QRect& boxArea)
{
    caption->setGeometry(boxArea.left(), boxArea.top() - captionHeight - captionGap, boxArea.width(), captionHeight);
    box->setGeometry(boxArea);
    const int width = (boxArea.width() - 2 * buttonGap) / 3;
    int left = boxArea.left();
    for (QPushButton* button : buttons) {
        button->setGeometry(left, boxArea.bottom() + 1 + buttonGap, width, buttonHeight);
        button->setAutoDefault(false);
        left += width + buttonGap;
    }
}

} // namespace textboxcommands
