#include "host/widgets/HVFilePathLineEdit.h"

#include "host/icons/HVIconStore.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMimeData>
#include <QRegularExpression>
#include <QToolButton>
#include <QUrl>

namespace {

/// The folder chosen from last, by any of these widgets, in this run.
QString& lastFolder()
{
    static QString folder;
    return folder;
}

/// What people paste: with blanks and quotes around it, as a URL, from a shell.
QString cleaned(QString path)
{
    path = path.trimmed();
    for (const QChar quote : {QLatin1Char('"'), QLatin1Char('\'')})
        if (path.size() > 1 && path.startsWith(quote) && path.endsWith(quote))
            path = path.mid(1, path.size() - 2);
    if (path.startsWith(QLatin1String("file:"), Qt::CaseInsensitive))
        if (const QUrl url(path); url.isLocalFile())
            path = url.toLocalFile();
    path = QDir::fromNativeSeparators(path);
    if (path == QLatin1String("~") || path.startsWith(QLatin1String("~/")))
        path.replace(0, 1, QDir::homePath());
    return path;
}

/// "sgy" of "SEG-Y files (*.sgy *.segy)"; empty when the first pattern is no plain suffix.
QString firstSuffix(const QString& filter)
{
    static const QRegularExpression pattern(QStringLiteral("\\(\\s*\\*\\.([\\w.+-]+)[\\s)]"));
    return pattern.match(filter).captured(1);
}

} // namespace

HVFilePathLineEdit::HVFilePathLineEdit(QWidget* parent)
    : QWidget(parent), m_line(new QLineEdit), m_button(new QToolButton)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(m_line);
    row->addWidget(m_button);
    m_button->setIcon(HVIconStore::icon(QStringLiteral("projectopen24")));
    // Dropped files are a path here, not the text of an address.
    m_line->setAcceptDrops(false);
    setAcceptDrops(true);
    setFocusProxy(m_line);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_line, &QLineEdit::editingFinished, this, [this] { setPath(m_line->text()); });
    connect(m_button, &QToolButton::clicked, this, &HVFilePathLineEdit::browse);
    showType();
}

void HVFilePathLineEdit::setPath(const QString& path)
{
    const QString next = cleaned(path);
    const QString shown = QDir::toNativeSeparators(next);
    if (m_line->text() != shown)
        m_line->setText(shown);
    m_line->setToolTip(shown);
    if (next == m_path)
        return;
    m_path = next;
    Q_EMIT pathChanged(m_path);
}

QString HVFilePathLineEdit::placeholderText() const
{
    return m_line->placeholderText();
}

void HVFilePathLineEdit::setPlaceholderText(const QString& text)
{
    m_line->setPlaceholderText(text);
}

void HVFilePathLineEdit::setDialogType(HVFileDialogType type)
{
    m_dialogType = type;
    showType();
}

void HVFilePathLineEdit::showType()
{
    const QString tip = m_dialogType == HVFileDialogType::Save ? tr("Choose where to save") : tr("Choose a file");
    m_button->setToolTip(tip);
    m_button->setAccessibleName(tip);
}

void HVFilePathLineEdit::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showType();
}

QString HVFilePathLineEdit::startFolder() const
{
    const QString folder = QFileInfo(m_path).absolutePath();
    if (!m_path.isEmpty() && QFileInfo(folder).isDir())
        return folder;
    return lastFolder().isEmpty() ? QDir::homePath() : lastFolder();
}

void HVFilePathLineEdit::browse()
{
    // What was typed counts as the place to start from.
    setPath(m_line->text());
    const bool isSave = m_dialogType == HVFileDialogType::Save;
    QString title = m_dialogTitle;
    if (title.isEmpty())
        title = isSave ? tr("Save As") : tr("Open File");
    // Not waited for: no loop of its own runs here while a script or a dialog around the widget goes on.
    auto* dialog = new QFileDialog(this, title, startFolder(), m_fileFilter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(isSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(isSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setDefaultSuffix(isSave ? firstSuffix(dialog->selectedNameFilter()) : QString());
    if (isSave)
        connect(dialog, &QFileDialog::filterSelected, dialog,
                [dialog](const QString& filter) { dialog->setDefaultSuffix(firstSuffix(filter)); });
    if (isSave ? !m_path.isEmpty() : QFileInfo(m_path).isFile())
        dialog->selectFile(QFileInfo(m_path).fileName());
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) {
        lastFolder() = QFileInfo(file).absolutePath();
        setPath(file);
    });
    dialog->open();
}

QString HVFilePathLineEdit::dropped(const QMimeData& dragged) const
{
    if (!dragged.hasUrls())
        return dragged.hasText() ? cleaned(dragged.text().section(QLatin1Char('\n'), 0, 0)) : QString();
    const QList<QUrl> urls = dragged.urls();
    // Of several files none is meant more than another.
    if (urls.size() != 1 || !urls.first().isLocalFile() || QFileInfo(urls.first().toLocalFile()).isDir())
        return {};
    return urls.first().toLocalFile();
}

void HVFilePathLineEdit::dragEnterEvent(QDragEnterEvent* event)
{
    if (dropped(*event->mimeData()).isEmpty())
        return;
    // The file stays where it is, whatever the source would like.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void HVFilePathLineEdit::dropEvent(QDropEvent* event)
{
    const QString path = dropped(*event->mimeData());
    if (path.isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    setPath(path);
}
