#include "app/OneProgram.h"

#include <QCryptographicHash>
#include <QLocalSocket>
#include <memory>

#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

namespace {

// A first program in the middle of a run answers within some 10 ms; one that waits for a page
// does not.
constexpr int kAnswerMs = 2000;

// A short name that both programs find, whatever road led to the folder.
QString NameFor(const std::filesystem::path& folder) {
    std::error_code unreadable;
    const auto whole = std::filesystem::weakly_canonical(folder, unreadable);
    const QByteArray path = QByteArray::fromStdString((unreadable ? folder : whole).string());
    return QStringLiteral("ssq-") +
           QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex());
}

}  // namespace

OneProgram::OneProgram(const std::filesystem::path& folder)
    : lock_(Qs((folder / "data" / "ssq.lock").string())), name_(NameFor(folder)) {
    lock_.setStaleLockTime(0);  // held however long the program runs
    isFirst_ = lock_.tryLock(0) || lock_.error() != QLockFile::LockFailedError;
}

void OneProgram::Answer(std::function<void()> onCalled) {
    QObject::connect(
        &server_, &QLocalServer::newConnection, &server_, [this, onCalled = std::move(onCalled)] {
            const std::unique_ptr<QLocalSocket> caller(server_.nextPendingConnection());
            onCalled();
            caller->write("1");
            caller->waitForBytesWritten(kAnswerMs);
        });
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QLocalServer::removeServer(name_);  // of a killed program
    server_.listen(name_);
}

bool OneProgram::CallFirst() const {
    QLocalSocket first;
    first.connectToServer(name_);
    return first.waitForConnected(kAnswerMs) && first.waitForReadyRead(kAnswerMs);
}

}  // namespace ssq
