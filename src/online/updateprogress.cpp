#include "online/updateprogress.h"

#include "online/drawupdate.h"
#include "platform/appinfo.h"

#include <QProgressDialog>

void runWithProgress(DrawUpdate& update, QWidget* parent)
{
    QProgressDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("DrawUpdateProgress"));
    dialog.setWindowTitle(appinfo::title());
    dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setCancelButtonText(QStringLiteral("取消"));
    dialog.setRange(0, 0); // how long it takes is not known beforehand
    dialog.setAutoReset(false);
    dialog.setAutoClose(false);
    dialog.setMinimumWidth(360);
    QObject::connect(&update, &DrawUpdate::stageChanged, &dialog, &QProgressDialog::setLabelText);
    QObject::connect(&update, &DrawUpdate::finished, &dialog, &QDialog::accept);
    update.start();
    if (update.outcome() == DrawUpdate::Outcome::Running)
        dialog.exec();
    // However the dialog went, an update still under way ends with it.
    update.cancel();
}
