// The event loop with a barrier: a fault in a handler becomes a box, and the program goes on.
#pragma once

#include <QApplication>
#include <functional>

namespace ssq {

class Application final : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

    // Takes what the user is to be told of an exception that left a handler.
    std::function<void(const QString&)> onFault;
};

}  // namespace ssq
