#include "qt/filePanels.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>

#include "qt/asText.h"

namespace qt::filePanels {

namespace {

std::filesystem::path pathOf(const QString& fileName) {
    const QByteArray encoded = QFile::encodeName(fileName);
    return {std::string(encoded.constData(), static_cast<std::size_t>(encoded.size()))};
}

QString filterFor(const std::string& type) {
    return QStringLiteral("%1 files (*.%1)").arg(asText(type));
}

std::optional<std::filesystem::path> run(QFileDialog& dialog) {
    // Qt's own dialog: what the desktops' dialogs write down about a visit is out of our hands.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowModality(Qt::ApplicationModal);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return pathOf(dialog.selectedFiles().constFirst());
}

}  // namespace

std::optional<std::filesystem::path> runSave(const toolkit::SavePanel& panel) {
    QFileDialog dialog(QApplication::activeWindow(), asText(panel.title));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!panel.requiredFileType.empty()) {
        dialog.setNameFilter(filterFor(panel.requiredFileType));
        dialog.setDefaultSuffix(asText(panel.requiredFileType));
    }
    dialog.selectFile(asText(panel.proposedName));
    return run(dialog);
}

std::optional<std::filesystem::path> runOpen(const toolkit::OpenPanel& panel) {
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    QStringList filters;
    for (const std::string& type : panel.fileTypes) {
        filters.append(filterFor(type));
    }
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
    }
    return run(dialog);
}

}  // namespace qt::filePanels
