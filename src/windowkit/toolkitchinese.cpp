#include "windowkit/toolkitchinese.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace toolkitchinese {

bool load(QCoreApplication& application)
{
    auto* translator = new QTranslator(&application);
    if (!translator->load(QStringLiteral("qtbase_zh_CN"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    QCoreApplication::installTranslator(translator);
    return true;
}

} // namespace toolkitchinese
