#include "windowkit/desktopservices.h"

#include "platform/appinfo.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMessageBox>
#include <QProcess>
#include <QUrl>

namespace {

QWidget* dialogParent()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

QMessageBox::Icon boxIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

// A short text makes a narrow box, in whose title bar the window system would
// cut the program's title: the box is made wide enough to show it whole, with
// room for the frame's own buttons.
int showBox(QMessageBox& box)
{
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
        const int width = QFontMetrics(box.font()).horizontalAdvance(box.windowTitle()) * 3 / 2 + 160;
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
    return box.exec();
}

QString askFileName(QFileDialog::AcceptMode mode, const QString& filter, const QString& defaultSuffix)
{
    QFileDialog dialog(dialogParent(), QString(), QString(), filter);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setDefaultSuffix(defaultSuffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

} // namespace

void QtMessageService::show(MessageIcon icon, const QString& text)
{
    QMessageBox box(boxIcon(icon), appinfo::title(), text, QMessageBox::Ok, dialogParent());
    showBox(box);
}

bool QtMessageService::askYesNo(const QString& text)
{
    QMessageBox box(QMessageBox::Question, appinfo::title(), text, QMessageBox::Yes | QMessageBox::No,
                    dialogParent());
    return showBox(box) == QMessageBox::Yes;
}

void QtClipboard::clear()
{
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::setText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

QString QtClipboard::text() const
{
    return QGuiApplication::clipboard()->text();
}

void handOverClipboard(std::unique_ptr<QApplication>& application)
{
    if (application && QGuiApplication::clipboard()->ownsClipboard())
        application.reset();
}

void QtDesktopLauncher::openAddress(const QString& address)
{
    QDesktopServices::openUrl(QUrl(address, QUrl::TolerantMode));
}

void QtDesktopLauncher::openDocument(const QString& path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool QtDesktopLauncher::startProgram(const QString& path)
{
    // Detached: it lives on when this program ends.
    return QProcess::startDetached(path, {});
}

QString QtFileDialogs::openFileName(const QString& filter, const QString& defaultSuffix)
{
    return askFileName(QFileDialog::AcceptOpen, filter, defaultSuffix);
}

QString QtFileDialogs::saveFileName(const QString& filter, const QString& defaultSuffix)
{
    return askFileName(QFileDialog::AcceptSave, filter, defaultSuffix);
}
