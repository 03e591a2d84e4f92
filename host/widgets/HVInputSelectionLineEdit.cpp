#include "host/widgets/HVInputSelectionLineEdit.h"

#include "host/icons/HVIconStore.h"
#include "host/widgets/HVObjectPopup.h"
#include "host/widgets/HVProjectObjects.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolButton>

HVInputSelectionLineEdit::HVInputSelectionLineEdit(QWidget* parent)
    : QWidget(parent), m_objects(new HVProjectObjects(this)), m_line(new QLineEdit), m_button(new QToolButton)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(m_line);
    row->addWidget(m_button);
    m_line->setReadOnly(true);
    m_line->setAcceptDrops(false);
    m_line->setContextMenuPolicy(Qt::NoContextMenu);
    m_line->setAccessibleName(tr("Input"));
    m_line->installEventFilter(this);
    m_clear = m_line->addAction(HVIconStore::icon(QStringLiteral("close_16")), QLineEdit::TrailingPosition);
    m_clear->setToolTip(tr("Clear (Del)"));
    connect(m_clear, &QAction::triggered, this, &HVInputSelectionLineEdit::clear);
    m_button->setIcon(HVIconStore::icon(QStringLiteral("find_next_16")));
    m_button->setToolTip(tr("Choose an object of the project"));
    m_button->setAccessibleName(m_button->toolTip());
    // Clicked again while the tree is open, the button closes it: the press goes to the popup, which hides.
    connect(m_button, &QToolButton::clicked, this, [this] { choose(); });
    setFocusProxy(m_line);
    setAcceptDrops(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    connect(m_objects, &HVProjectObjects::replaced, this, &HVInputSelectionLineEdit::check);
    connect(m_objects, &HVProjectObjects::changed, this, &HVInputSelectionLineEdit::check);
    connect(m_objects, &HVProjectObjects::renamed, this, [this](const QString& before, const QString& after) {
        if (m_object == before)
            take(after);
    });
    showObject();
}

HVInputSelectionLineEdit::~HVInputSelectionLineEdit() = default;

const std::set<ObjectKind>& HVInputSelectionLineEdit::kinds() const
{
    return m_objects->kinds();
}

void HVInputSelectionLineEdit::setKinds(std::set<ObjectKind> kinds)
{
    m_objects->setKinds(std::move(kinds));
}

HVProject* HVInputSelectionLineEdit::project() const
{
    return m_objects->project();
}

void HVInputSelectionLineEdit::setProject(HVProject* project)
{
    m_objects->setProject(project);
}

bool HVInputSelectionLineEdit::setObject(const QString& path)
{
    const QString object = m_objects->suitable(path);
    if (!path.isEmpty() && !QFileInfo(object).isFile())
        return false;
    take(object);
    return true;
}

void HVInputSelectionLineEdit::setPlaceholderText(const QString& text)
{
    m_placeholder = text;
    showObject();
}

void HVInputSelectionLineEdit::take(const QString& path)
{
    if (path == m_object)
        return;
    m_object = path;
    showObject();
    Q_EMIT selectionChanged(m_object);
}

void HVInputSelectionLineEdit::check()
{
    if (!m_object.isEmpty() && !QFileInfo(m_objects->suitable(m_object)).isFile())
        take({});
    showObject();
}

void HVInputSelectionLineEdit::showObject()
{
    const auto kind = m_objects->project() ? m_objects->project()->kindOf(m_object) : std::nullopt;
    const bool isChosen = kind.has_value();
    m_line->setText(isChosen ? QFileInfo(m_object).completeBaseName() : QString());
    m_line->setCursorPosition(0);
    m_line->setToolTip(QDir::toNativeSeparators(m_object));
    if (isChosen && !m_icon) {
        m_icon = m_line->addAction(QIcon(), QLineEdit::LeadingPosition);
        connect(m_icon, &QAction::triggered, this, [this] { choose(); });
    }
    if (m_icon) {
        m_icon->setVisible(isChosen);
        if (isChosen)
            m_icon->setIcon(HVIconStore::icon(QLatin1String(objectKindInfo(*kind).icon)));
    }
    m_clear->setVisible(isChosen);
    const QString usual = m_objects->project() ? tr("Choose or drop an object") : m_objects->whyNone();
    m_line->setPlaceholderText(m_placeholder.isEmpty() ? usual : m_placeholder);
}

void HVInputSelectionLineEdit::choose(const QString& text)
{
    if (!m_popup) {
        m_popup = new HVObjectPopup(m_objects, this);
        connect(m_popup, &HVObjectPopup::chosen, this, &HVInputSelectionLineEdit::setObject);
    }
    m_popup->open(m_object, text);
}

bool HVInputSelectionLineEdit::eventFilter(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return handleKey(*static_cast<QKeyEvent*>(event)) || QWidget::eventFilter(receiver, event);
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && m_line->underMouse() &&
            !m_line->hasSelectedText())
            choose();
        return QWidget::eventFilter(receiver, event);
    default:
        return QWidget::eventFilter(receiver, event);
    }
}

bool HVInputSelectionLineEdit::handleKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Down:
    case Qt::Key_F4:
        choose();
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        clear();
        return true;
    default:
        break;
    }
    const bool isText = !event.text().isEmpty() && event.text().at(0).isPrint() &&
                        !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (isText)
        choose(event.text().trimmed());
    return isText;
}

void HVInputSelectionLineEdit::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_objects->dropped(*event).isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void HVInputSelectionLineEdit::dropEvent(QDropEvent* event)
{
    const QString path = m_objects->dropped(*event);
    if (path.isEmpty() || !setObject(path))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}
