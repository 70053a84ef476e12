#include "desktop/Application.h"

#include <exception>
#include <new>

namespace linealis::desktop {

bool Application::notify(QObject* receiver, QEvent* event)
{
    std::string error;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        error = "there is not enough memory";
    } catch (const std::exception& exception) {
        error = exception.what();
    }
    if (onError) {
        onError("That could not be done: " + error + ". Nothing has changed.");
    }
    return true;
}

}  // namespace linealis::desktop
