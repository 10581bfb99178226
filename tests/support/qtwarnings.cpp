#include "support/qtwarnings.h"

#include <QMutex>
#include <QtGlobal>

namespace {

QtMessageHandler previous = nullptr;

QMutex &mutex()
{
    static QMutex guard;
    return guard;
}

QStringList &collected()
{
    static QStringList warnings;
    return warnings;
}

void collect(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool isOfPlatform = message.startsWith(QLatin1String("This plugin does not support"));
    if (type != QtDebugMsg && type != QtInfoMsg && !isOfPlatform) {
        const QMutexLocker locker(&mutex());
        collected().append(message);
    }
    if (previous && !isOfPlatform)
        previous(type, context, message);
}

}  // namespace

QtWarnings::QtWarnings()
{
    collected().clear();
    previous = qInstallMessageHandler(collect);
}

QtWarnings::~QtWarnings()
{
    qInstallMessageHandler(previous);
    previous = nullptr;
}

QStringList QtWarnings::seen() const
{
    const QMutexLocker locker(&mutex());
    return collected();
}
