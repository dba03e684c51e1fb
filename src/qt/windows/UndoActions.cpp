#include "qt/windows/UndoActions.h"

#include <QFontMetrics>
#include <QWidget>

#include "qt/access/Command.h"
#include "qt/widgets/asText.h"

namespace qt::windows {

namespace {

constexpr int lettersOfAStep = 60;  // names of files can be longer

}  // namespace

QAction* UndoActions::makeAction(QWidget& window, const std::function<void()>& act) {
    auto* action = new access::Command({}, &window);
    window.addAction(action);
    QObject::connect(action, &QAction::triggered, &window, act);
    return action;
}

void UndoActions::nameActions() {
    undo_->setObjectName(QStringLiteral("actionUndo"));
    undo_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    redo_->setObjectName(QStringLiteral("actionRedo"));
    redo_->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
}

void UndoActions::showName(QAction& action, const char* caption, bool isThere,
                           std::string_view step) {
    QString text = QString::fromLatin1(caption);
    if (isThere) {
        const QFontMetrics letters(action.font());
        QString name = letters.elidedText(widgets::asText(step), Qt::ElideRight,
                                          letters.averageCharWidth() * lettersOfAStep);
        text += u' ' + name.replace(u'&', QStringLiteral("&&"));
    }
    action.setText(text);
    action.setEnabled(isThere);
}

}  // namespace qt::windows
