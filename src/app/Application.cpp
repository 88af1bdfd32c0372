#include "app/Application.h"

#include <exception>

namespace ssq {

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& fault) {
        if (onFault) {
            onFault(QStringLiteral("程序内部出错，本次操作没有完成：") +
                    QString::fromUtf8(fault.what()));
        }
        return false;
    }
}

}  // namespace ssq
