#include "qt/SearchedList.h"

#include <QApplication>
#include <QToolTip>

#include "qt/ComboBoxView.h"
#include "qt/FaceAccess.h"
#include "toolkit/itemSearch.h"

namespace qt {

SearchedList::SearchedList(ComboBoxView& box) : box_(box) {
    describeAfresh(*this);
}

/// Keys that follow each other soon are one word.
void SearchedList::keyboardSearch(const QString& typed) {
    const toolkit::ComboBox* box = box_.shown();
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

}  // namespace qt
