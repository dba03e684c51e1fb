#pragma once

#include <QBoxLayout>
#include <QString>
#include <QWidget>

namespace qt::windows {

/// One of a row of numbered steps: its number, what to do and what to expect, what it stands at,
/// and its buttons. The step to be done next stands out.
class StepRow final : public QWidget {
public:
    struct Words {
        QString title;
        QString whatToDo;
        QString whatToExpect;
    };

    StepRow(int number, const Words& words);

    /// Below the words.
    void addLine(QWidget* line);
    /// On the right. The last one added is the step's own.
    void addButton(QWidget* button);

    void setNext(bool next);
    [[nodiscard]] bool isNext() const { return next_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int number_;
    bool next_ = false;
    QVBoxLayout* lines_;
    QVBoxLayout* buttons_;
};

}  // namespace qt::windows
