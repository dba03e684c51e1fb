#pragma once

#include <QElapsedTimer>
#include <QListView>

namespace qt {

class ComboBoxView;

/// The list that a box opens, in which typing looks for an item.
class SearchedList final : public QListView {
public:
    explicit SearchedList(ComboBoxView& box);

    [[nodiscard]] ComboBoxView& box() const { return box_; }

    void keyboardSearch(const QString& typed) override;

private:
    ComboBoxView& box_;
    QString typed_;
    QElapsedTimer sinceLastKey_;
};

}  // namespace qt
