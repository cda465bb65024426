#include "widgets/HandlerGuard.h"

#include "base/CLocalConfig.h"
#include "store/StoreError.h"

#include <QMessageBox>

bool runGuarded(QWidget *parent, const std::function<void()> &handler)
{
    try {
        handler();
        return true;
    } catch (const StoreError &e) {
        QMessageBox::critical(parent, QStringLiteral("Corvane"), e.engineText());
    } catch (const ConfigError &e) {
        QMessageBox::critical(parent, QStringLiteral("Corvane"), e.displayText());
    }
    return false;
}
