#include "history/formadd.h"

#include "history/drawentry.h"
#include "history/drawhistory.h"
#include "platform/textrules.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

FormAdd::FormAdd(AppContext& context, DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent),
      Label1(controls::label(this, "Label1", QStringLiteral("彩票期号："), QRect(24, 24, 76, 22))),
      Text1(new QLineEdit(this)),
      Label3(controls::label(this, "Label3", QStringLiteral("彩票号码："), QRect(24, 62, 76, 22))),
      Text2(new QLineEdit(this)),
      Command1(controls::button(this, "Command1", QStringLiteral("添加"), QRect(100, 104, 90, 30))),
      Command2(controls::button(this, "Command2", QStringLiteral("取消"), QRect(210, 104, 90, 30))),
      m_history(history)
{
    setObjectName(QStringLiteral("FormAdd"));
    setWindowTitle(QStringLiteral("添加或者修改已经开奖的号码"));
    setFixedSize(420, 150);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setGeometry(100, 22, 140, 26);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setGeometry(100, 60, 296, 26);
    Command1->setDefault(true);

    onClick(Command1, [this] { Command1_Click(); });
    onClick(Command2, [this] { Command2_Click(); });
    setEscapeButton(Command2);
}

void FormAdd::Command1_Click()
{
    switch (drawentry::check(Text1->text(), Text2->text())) {
    case drawentry::Check::Incomplete:
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("信息不完整。"));
        return;
    case drawentry::Check::NotNumeric:
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("信息必须都是数字。"));
        return;
    case drawentry::Check::Complete:
        break;
    }

    // From here on failures are passed over in silence.
    const QString issue = textrules::trim(Text1->text());
    const QString group = drawentry::groupText(Text2->text());
    if (AddMode) {
        // An issue number that exists: the add fails, setting the group fails
        // with it, and the window closes with the list unchanged.
        if (m_history.add(DrawHistory::keyOf(issue), issue))
            m_history.setSubItem(m_history.count() - 1, DrawHistory::GroupSubItem, group);
    } else if (ModifiedRow >= 0 && ModifiedRow < m_history.count()) {
        // A key that another row has is refused and the old key stays; the
        // issue number and the group change all the same.
        m_history.setKey(ModifiedRow, DrawHistory::keyOf(issue));
        m_history.setText(ModifiedRow, issue);
        m_history.setSubItem(ModifiedRow, DrawHistory::GroupSubItem, group);
    }
    accept();
}

void FormAdd::Command2_Click()
{
    reject();
}
