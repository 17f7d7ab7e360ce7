#include "platform/databases/qt_long_work.h"

#include <QEventLoop>
#include <QThread>
#include <exception>
#include <memory>

namespace orvane {
namespace {

// Most work is done before anyone could see that the window stands still.
constexpr unsigned long kUnnoticedMilliseconds = 20;

}  // namespace

void QtLongWork::Run(const std::function<void()>& work) {
  std::exception_ptr failure;
  bool begun = false;
  const std::unique_ptr<QThread> thread(QThread::create([&work, &failure, &begun] {
    begun = true;
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
  }));
  QEventLoop loop;
  QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
  thread->start();
  if (!thread->wait(kUnnoticedMilliseconds)) {
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread->wait();
  }
  // The system may have no thread left.
  if (!begun) work();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace orvane
