#include "settings/form6qiu.h"

#include "settings/rangetexts.h"
#include "windowkit/appcontext.h"

#include <QPlainTextEdit>
#include <QPushButton>

namespace {

constexpr int windowWidth = 280;
constexpr int windowHeight = 200;

} // namespace

Form6Qiu::Form6Qiu(AppContext& context, QWidget* parent) : ModalWindow(context, parent)
{
    setObjectName(QStringLiteral("Form6Qiu"));
    setWindowTitle(QStringLiteral("目前6个球设置的范围"));
    setFixedSize(windowWidth, windowHeight);

    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true); // a view of the ranges: they are set through "设置"
    Text1->setGeometry(12, 12, windowWidth - 24, windowHeight - 12 - 48);

    Command1 = new QPushButton(QStringLiteral("确定"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command1->setGeometry((windowWidth - 90) / 2, windowHeight - 12 - 28, 90, 28);
    onClick(Command1, [this] { Command1_Click(); });
    setEscapeButton(Command1); // it only closes the window

    m_context.runEvent([&] { Form_Load(); });
}

void Form6Qiu::Form_Load()
{
    Text1->clear();
    // The text box shows each CR LF of the ranges' text as one line end.
    Text1->setPlainText(rangetexts::sixRanges(m_context.ranges).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

void Form6Qiu::Command1_Click()
{
    accept();
}
