#pragma once

#include <QAbstractListModel>
#include <QComboBox>

#include "qt/ModelLink.h"
#include "toolkit/ComboBox.h"

namespace qt {

/// Shows a `toolkit::ComboBox`: a drop-down list nobody can type into. A person's pick goes to the
/// model, and what is shown afterwards is the model's selection.
///
/// Items are read from the model when they are painted, so filling costs nothing per item.
class ComboBoxView final : public QComboBox {
public:
    explicit ComboBoxView(toolkit::ComboBox& model, QWidget* parent = nullptr);

    void showPopup() override;

protected:
    /// A wheel that rolls over a box on its way down the window changes nothing.
    void wheelEvent(QWheelEvent* event) override;

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

    void follow(toolkit::ComboBox::Change change);
    void showItems();
    void showSelection();
    void passChoice(int index);

    ModelLink<toolkit::ComboBox> link_;
    Items items_{*this};
};

}  // namespace qt
