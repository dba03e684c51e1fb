#include "qt/widgets/SearchedList.h"

#include <QApplication>
#include <QToolTip>
#include <utility>

#include "qt/access/ChoiceAccess.h"
#include "toolkit/itemSearch.h"

namespace qt::widgets {

SearchedList::SearchedList(QComboBox& box, const ModelLink<toolkit::ComboBox>& link,
                           std::function<void(int row)> pick)
    : Described(this), box_(box), link_(link), pick_(std::move(pick)) {}

QAccessibleInterface* SearchedList::newAccess() {
    return access::newChoiceListAccess(*this, box_, pick_);
}

/// Keys that follow each other soon are one word.
void SearchedList::keyboardSearch(const QString& typed) {
    const toolkit::ComboBox* box = link_.model();
    if (box == nullptr || typed.isEmpty()) {
        typed_.clear();
        return;
    }
    if (!sinceLastKey_.isValid() ||
        sinceLastKey_.hasExpired(qint64{2} * QApplication::keyboardInputInterval())) {
        typed_.clear();
    }
    typed_ += typed;
    sinceLastKey_.start();
    const int found = toolkit::findItem(*box, typed_.toStdString(), currentIndex().row());
    if (found >= 0) {
        setCurrentIndex(model()->index(found, 0));
    }
    const QString hint =
        found >= 0 ? QStringLiteral("Search: %1") : QStringLiteral("No \u201c%1\u201d");
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), hint.arg(typed_), this);
}

}  // namespace qt::widgets
