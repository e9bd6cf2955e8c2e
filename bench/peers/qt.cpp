#include <QFileInfo>
#include <QObject>
#include <memory>

#include "peers/peers.h"

namespace bench {

class Clock : public QObject {
    Q_OBJECT
  public:
    Q_INVOKABLE int Chrono(int departure, int arrival) {
        return departure > arrival ? 86400 - departure + arrival : arrival - departure;
    }
};

namespace {

Loop callByName(int departure, int arrival) {
    return loopOf([=, clock = std::make_shared<Clock>()] {
        int result = 0;
        QMetaObject::invokeMethod(clock.get(), "Chrono", Qt::DirectConnection, Q_RETURN_ARG(int, result),
                                  Q_ARG(int, opaque(departure)), Q_ARG(int, arrival));
        return result;
    });
}

Loop pathParts(std::string path) {
    return loopOf([path = QString::fromStdString(path)] {
        const QFileInfo info(path);
        return QString(info.path() + '/' + info.completeBaseName() + '.' + info.suffix().toUpper());
    });
}

const Installed installed(qtCallByName, callByName);
const Installed installedParts(qtPathParts, pathParts);

}  // namespace
}  // namespace bench

#include "qt.moc"
