// The windows on show: which one the commands address, and which is modal.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>

namespace ssq {

class Panels final : public QObject {
  public:
    Panels();

    // The modal window in front, else the panel opened (or asked for) last that still shows.
    // Null when nothing shows.
    QWidget* Addressed() const;

    // Makes an open panel the addressed one; false when none of that name is open.
    bool Address(const QString& name);

    // The modal window in front, or null.
    static QWidget* Modal();
    static int ModalCount();

    // The name by which replies call a window.
    static std::string Name(const QWidget& window);

    std::function<void()> onModalShown;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void MoveToFront(QWidget* panel);

    QList<QPointer<QWidget>> opened_;  // the one opened last stands last
};

}  // namespace ssq
