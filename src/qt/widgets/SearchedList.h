#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <QListView>
#include <functional>

#include "qt/access/Described.h"
#include "qt/widgets/ModelLink.h"
#include "toolkit/ComboBox.h"

namespace qt::widgets {

/// The list that a box opens, in which typing looks for an item.
class SearchedList final : public QListView, public access::Described {
public:
    /// `link` leads to what the box shows; `pick` chooses the item of a row. Both are the box's.
    SearchedList(QComboBox& box, const ModelLink<toolkit::ComboBox>& link,
                 std::function<void(int row)> pick);

    void keyboardSearch(const QString& typed) override;
    [[nodiscard]] QAccessibleInterface* newAccess() override;

private:
    QComboBox& box_;
    const ModelLink<toolkit::ComboBox>& link_;
    std::function<void(int row)> pick_;
    QString typed_;
    QElapsedTimer sinceLastKey_;
};

}  // namespace qt::widgets
