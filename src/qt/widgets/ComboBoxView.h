#pragma once

#include <QAbstractListModel>
#include <QComboBox>

#include "qt/widgets/ModelLink.h"
#include "toolkit/ComboBox.h"

namespace qt::widgets {

/// Shows a `toolkit::ComboBox`: a drop-down list nobody can type into. A person's pick goes to the
/// model, and what is shown afterwards is the model's selection.
///
/// Typing looks for an item, in the open list so that nothing is chosen before Enter: "sus" finds
/// "64 Sustain", "60" the note and the number.
///
/// Items are read from the model when they are painted, so filling costs nothing per item.
class ComboBoxView final : public QComboBox {
public:
    explicit ComboBoxView(toolkit::ComboBox& model, QWidget* parent = nullptr);

    void showPopup() override;

protected:
    /// A wheel that rolls over a box on its way down the window changes nothing.
    void wheelEvent(QWheelEvent* event) override;
    /// A letter opens the list and begins a search.
    void keyPressEvent(QKeyEvent* event) override;
    /// A selected item that finds no space is cut with "..." and shown whole in the tool tip.
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    class Items final : public QAbstractListModel {
    public:
        explicit Items(const ComboBoxView& view) : view_(view) {}
        [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
        [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
        void reset();

    private:
        const ComboBoxView& view_;
    };

    /// Whether the open list has no space for an item.
    [[nodiscard]] bool cuts(const QString& item) const;
    [[nodiscard]] QString shownText() const;
    void follow(toolkit::ComboBox::Change change);
    void showItems();
    void showSelection();
    void passChoice(int index);
    /// A pick without a hand: closes the list where it is open and chooses the item. Nothing where
    /// there is no such item or the box is switched off.
    void pick(int row);

    ModelLink<toolkit::ComboBox> link_;
    Items items_{*this};
};

}  // namespace qt::widgets
