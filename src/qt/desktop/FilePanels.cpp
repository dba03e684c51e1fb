#include "qt/desktop/FilePanels.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <chrono>
#include <memory>
#include <utility>

#include "qt/desktop/windowInFront.h"
#include "qt/widgets/asText.h"

namespace qt::desktop {

namespace {

std::filesystem::path pathOf(const QString& fileName) {
    const QByteArray encoded = QFile::encodeName(fileName);
    return {std::string(encoded.constData(), static_cast<std::size_t>(encoded.size()))};
}

QString filterFor(const std::string& type) {
    return QStringLiteral("%1 files (*.%1)").arg(widgets::asText(type));
}

/// The list that completes a name goes before the panel does. While it is open, Qt takes no notice
/// that the window behind has got the focus, and that window would take no shortcuts.
class Panel : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    void done(int result) override {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->hide();
        }
        QFileDialog::done(result);
    }
};

/// Gives the name a person typed the required type where it has another or none. Qt's own default
/// suffix takes any dot for one: "mix 1.2" would stay as it is, and the open panel would not show
/// it.
class SaveDialog final : public Panel {
public:
    SaveDialog(QWidget* parent, const QString& title, const QString& type)
        : Panel(parent, title), suffix_(type.isEmpty() ? QString() : u'.' + type) {}

    void accept() override {
        // The field's text itself: Qt compares it with the files there are, to ask before
        // replacing.
        if (auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
            const QString name = field->text();
            if (!name.isEmpty() && !name.endsWith(suffix_, Qt::CaseInsensitive) &&
                !isFolder(name)) {
                field->setText(name + suffix_);
            }
        }
        QFileDialog::accept();
    }

private:
    /// Qt opens a folder that was typed instead of saving.
    [[nodiscard]] bool isFolder(const QString& name) const {
        return name.endsWith(u'/') || name == u'~' || QFileInfo(directory(), name).isDir();
    }

    QString suffix_;
};

/// A panel takes longer than a frame to go, as it waits for its thread that reads folders. That is
/// put off until what its answer leads to has been painted.
void leaveLater(QFileDialog& dialog, QObjectCleanupHandler& leaving) {
    dialog.hide();
    leaving.add(&dialog);
    QTimer::singleShot(std::chrono::milliseconds(100), &dialog, &QObject::deleteLater);
}

/// Qt ties only the name's label to its field: without these a screen reader finds boxes of no
/// name.
void tieLabels(const QFileDialog& dialog) {
    for (const auto& [label, field] :
         {std::pair("lookInLabel", "lookInCombo"), std::pair("fileTypeLabel", "fileTypeCombo")}) {
        auto* caption = dialog.findChild<QLabel*>(QString::fromLatin1(label));
        auto* box = dialog.findChild<QWidget*>(QString::fromLatin1(field));
        if (caption != nullptr && box != nullptr) {
            caption->setBuddy(box);
        }
    }
}

std::optional<std::filesystem::path> run(std::unique_ptr<QFileDialog> dialog,
                                         QObjectCleanupHandler& leaving) {
    // Qt's own dialog: what the desktops' dialogs write down about a visit is out of our hands.
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setWindowModality(Qt::ApplicationModal);
    tieLabels(*dialog);
    std::optional<std::filesystem::path> answer;
    if (dialog->exec() == QDialog::Accepted && !dialog->selectedFiles().isEmpty()) {
        answer = pathOf(dialog->selectedFiles().constFirst());
    }
    leaveLater(*dialog.release(), leaving);
    return answer;
}

}  // namespace

std::optional<std::filesystem::path> FilePanels::runSave(const toolkit::SavePanel& panel) {
    auto dialog = std::make_unique<SaveDialog>(windowInFront(), widgets::asText(panel.title),
                                               widgets::asText(panel.requiredFileType));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    if (!panel.requiredFileType.empty()) {
        dialog->setNameFilter(filterFor(panel.requiredFileType));
    }
    dialog->selectFile(widgets::asText(panel.proposedName));
    return run(std::move(dialog), leaving_);
}

std::optional<std::filesystem::path> FilePanels::runOpen(const toolkit::OpenPanel& panel) {
    auto dialog = std::make_unique<Panel>(windowInFront());
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QStringList filters;
    for (const std::string& type : panel.fileTypes) {
        filters.append(filterFor(type));
    }
    if (!filters.isEmpty()) {
        dialog->setNameFilters(filters);
    }
    return run(std::move(dialog), leaving_);
}

}  // namespace qt::desktop
