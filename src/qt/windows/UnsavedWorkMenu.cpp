#include "qt/windows/UnsavedWorkMenu.h"

#include <chrono>

#include "qt/access/Command.h"
#include "qt/widgets/asText.h"
#include "rescue/words.h"

namespace qt::windows {

UnsavedWorkMenu::UnsavedWorkMenu(QMenu& menu, QAction& before, editor::UnsavedWork& unsavedWork)
    : unsavedWork_(unsavedWork),
      entries_{makeEntry(menu, before, "BringBack", "&Bring Back Unsaved Work",
                         &editor::UnsavedWork::bringBack),
               makeEntry(menu, before, "Discard", "&Discard Unsaved Work",
                         &editor::UnsavedWork::discard)} {
    menu.insertSeparator(&before);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] {
        unsavedWork_.look();
        refresh();
    });
    refresh();
}

UnsavedWorkMenu::Entry UnsavedWorkMenu::makeEntry(QMenu& menu, QAction& before, const char* name,
                                                  const char* caption, Act act) {
    const QString words = QString::fromLatin1(caption);
    Entry entry{new access::Command(words, &menu), new QMenu(words, &menu), act};
    entry.command->setObjectName(QStringLiteral("action") + QString::fromLatin1(name));
    entry.list->setObjectName(QStringLiteral("list") + QString::fromLatin1(name));
    menu.insertAction(&before, entry.command);
    menu.insertMenu(&before, entry.list);
    QObject::connect(entry.command, &QAction::triggered, &menu, [this, act] {
        if (unsavedWork_.offers().size() == 1) {
            perform(act, unsavedWork_.offers().front());
        }
    });
    return entry;
}

void UnsavedWorkMenu::refresh() {
    const std::size_t count = unsavedWork_.offers().size();
    for (const Entry& entry : entries_) {
        entry.command->setVisible(count <= 1);
        entry.command->setEnabled(count == 1);
        entry.list->menuAction()->setVisible(count > 1);
        refreshList(entry);
    }
}

void UnsavedWorkMenu::refreshList(const Entry& entry) {
    entry.list->clear();
    const auto now = std::chrono::system_clock::now();
    for (const rescue::Leftover& offer : unsavedWork_.offers()) {
        auto* action =
            new access::Command(widgets::asText(rescue::menuWords(offer, now)), entry.list);
        QObject::connect(action, &QAction::triggered, entry.list,
                         [this, act = entry.act, offer] { perform(act, offer); });
        entry.list->addAction(action);
    }
}

void UnsavedWorkMenu::perform(Act act, const rescue::Leftover& offer) {
    (unsavedWork_.*act)(offer);
    // Not before the entry that was chosen is done with: it goes with the list.
    QMetaObject::invokeMethod(
        entries_.front().list, [this] { refresh(); }, Qt::QueuedConnection);
}

}  // namespace qt::windows
