#include "exportdialog.h"

#include "formatbox.h"
#include "messagetext.h"
#include "plaintexts.h"
#include "showntrace.h"
#include "tracetablemodel.h"
#include "traceview.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>

namespace {

const QString lastFolder = QStringLiteral("files/exportFolder");

// Where the last export went, or else where the trace lies.
QString exportFolder(const QStringList &sources)
{
    const QString other =
        sources.isEmpty() ? QDir::homePath() : QFileInfo(sources.first()).absolutePath();
    return QSettings().value(lastFolder, other).toString();
}

QString proposedName(const ShownTrace &trace, const QString &suffix)
{
    const QString folder = exportFolder(trace.paths());
    const QString base = QFileInfo(trace.title()).completeBaseName();
    QString name = QStringLiteral("%1.%2").arg(base, suffix);
    for (int number = 2; QFileInfo::exists(QDir(folder).filePath(name)); ++number)
        name = QStringLiteral("%1-%2.%3").arg(base, QString::number(number), suffix);
    return QDir(folder).filePath(name);
}

// As the table has them, but for those with a sign, which would count from the current message.
JumpTarget::Times timesOf(const TraceView &view)
{
    JumpTarget::Times times = view.times();
    if (times.shown == TraceLook::SinceMark || times.start < 0)
        times.shown = TraceLook::SinceStart;
    return times;
}

} // namespace

ExportDialog::ExportDialog(const ShownTrace &trace, const TraceView &view, QWidget *parent)
    : QDialog(parent), sources(trace.paths()), expression(view.model()->filter()),
      selected(view.selectedPositions()), times(timesOf(view)), group(new QButtonGroup(this)),
      name(new QLineEdit(this)), format(new FormatBox(this)),
      deltas(new QCheckBox(tr("Times from message to &message"), this)),
      notes(new QCheckBox(tr("Write &notes behind their messages"), this)), remark(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("export"));
    setWindowTitle(tr("Export %1").arg(trace.title()));
    notes->setChecked(true);
    remark->setWordWrap(true);
    name->setText(proposedName(trace, format->format().suffix()));
    auto *box = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    button = box->addButton(tr("E&xport"), QDialogButtonBox::AcceptRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(parts(trace, view));
    layout->addWidget(target());
    layout->addWidget(box);
    connect(box, &QDialogButtonBox::accepted, this, &ExportDialog::choose);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(name, &QLineEdit::textEdited, this, &ExportDialog::followName);
    connect(format, QOverload<int>::of(&QComboBox::activated), this, &ExportDialog::followFormat);
    connect(group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonClicked), this,
            &ExportDialog::update);
    update();
    name->setFocus();
}

QRadioButton *ExportDialog::addPart(Part part, const QString &text, bool isThere)
{
    auto *radio = new QRadioButton(text, this);
    radio->setEnabled(isThere);
    group->addButton(radio, part);
    grid->addWidget(radio, int(part), 0);
    return radio;
}

QLineEdit *ExportDialog::addRange(Part part, const QString &text, const QString &first,
                                  const QString &last)
{
    QRadioButton *radio = addPart(part, text, true);
    const QString names[] = {tr("%1 first").arg(text), tr("%1 last").arg(text)};
    QLineEdit **const fields[] = {&firstOf[part], &lastOf[part]};
    for (int i = 0; i < 2; ++i) {
        auto *field = new QLineEdit(i == 0 ? first : last, this);
        field->setAccessibleName(QString(names[i]).remove(QLatin1Char('&')));
        field->setMinimumWidth(fontMetrics().averageCharWidth() * 22);
        grid->addWidget(field, int(part), 1 + 2 * i);
        connect(field, &QLineEdit::textEdited, this, [this, radio] {
            radio->setChecked(true);
            update();
        });
        *fields[i] = field;
    }
    auto *to = new QLabel(tr("to"), this);
    grid->addWidget(to, int(part), 2);
    return firstOf[part];
}

QWidget *ExportDialog::parts(const ShownTrace &trace, const TraceView &view)
{
    auto *box = new QGroupBox(tr("Messages"), this);
    grid = new QGridLayout(box);
    grid->setColumnStretch(3, 1);
    const TraceTimeline &timeline = trace.timeline();
    const quint64 count = timeline.count();
    const auto positions = int(selected.size());
    addPart(All, tr("&All, %1").arg(messagesText(count)), true);
    const QString text = expression ? expression->text() : QString();
    constexpr int mostShown = 40;
    QRadioButton *found = addPart(
        Filtered,
        expression ? tr("Those that the &filter shows: %1")
                         .arg(fontMetrics().elidedText(
                             text, Qt::ElideRight, fontMetrics().averageCharWidth() * mostShown))
                   : tr("Those that the &filter shows"),
        expression.has_value());
    grid->addWidget(found, int(Filtered), 0, 1, 4);
    QRadioButton *rows = addPart(
        Selected, tr("&Selected rows, %1").arg(messagesText(quint64(positions))), positions > 0);
    addRange(Positions, tr("&Positions from"), QStringLiteral("0"),
             QString::number(count == 0 ? 0 : count - 1));
    addRange(Times, tr("&Times from"), JumpTarget::timeText(timeline.firstTime(), times),
             JumpTarget::timeText(timeline.lastTime(), times));
    for (QLineEdit *field : {firstOf[Times], lastOf[Times]})
        field->setToolTip(JumpTarget::timeHint(times));
    // Who has chosen more than the current row, or a filter, wants that.
    QRadioButton *first = positions > 1 ? rows : expression ? found : nullptr;
    (first ? first : static_cast<QRadioButton *>(group->button(All)))->setChecked(true);
    Q_UNUSED(view)
    return box;
}

QWidget *ExportDialog::target()
{
    auto *box = new QWidget(this);
    auto *form = new QFormLayout(box);
    form->setContentsMargins({});
    auto *line = new QHBoxLayout;
    auto *choose = new QPushButton(tr("&Browse…"), box);
    choose->setAutoDefault(false);
    name->setObjectName(QStringLiteral("file"));
    name->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    line->addWidget(name, 1);
    line->addWidget(choose);
    connect(choose, &QPushButton::clicked, this, &ExportDialog::browse);
    auto *label = new QLabel(tr("F&ile:"), box);
    label->setBuddy(name);
    form->addRow(label, line);
    form->addRow(tr("F&ormat:"), format);
    form->addRow(QString(), deltas);
    form->addRow(QString(), notes);
    form->addRow(QString(), remark);
    return box;
}

void ExportDialog::browse()
{
    auto *dialog = new QFileDialog(this, tr("Export"), name->text());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    dialog->selectFile(name->text());
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &file) {
        name->setText(file);
        followName();
    });
    dialog->open();
}

// A name that ends in a format chooses it.
void ExportDialog::followName()
{
    const auto named = TargetFormat::ofFile(name->text());
    if (named && named->suffix() != format->format().suffix())
        format->setFormat(*named);
    update();
}

void ExportDialog::followFormat()
{
    const QFileInfo file(name->text());
    if (!file.fileName().isEmpty())
        name->setText(file.dir().filePath(file.completeBaseName() + QLatin1Char('.')
                                          + format->format().suffix()));
    update();
}

bool ExportDialog::isSource(const QString &target) const
{
    const QString path = QFileInfo(target).canonicalFilePath();
    for (const QString &source : sources) {
        const QString from = QFileInfo(source).canonicalFilePath();
        if (path == from || QFileInfo(path).path() == from)
            return !path.isEmpty();
    }
    return false;
}

// A name alone is one in the folder that was proposed.
QString ExportDialog::targetPath() const
{
    const QString text = name->text();
    return text.isEmpty() ? text : QDir(exportFolder(sources)).absoluteFilePath(text);
}

// An existing file of the trace must not be replaced by a part of it.
void ExportDialog::update()
{
    deltas->setVisible(format->hasDeltaTimes());
    notes->setVisible(format->isOwnText());
    const QFileInfo file(targetPath());
    QStringList remarks(format->limits());
    bool mayWrite = !file.fileName().isEmpty();
    if (file.isDir() || !file.dir().exists()) {
        remarks = QStringList(file.isDir() ? tr("This is a folder; add a name.")
                                           : tr("There is no such folder."));
        mayWrite = false;
    } else if (isSource(targetPath())) {
        remarks = QStringList(tr("The trace is read from there; choose another name."));
        mayWrite = false;
    } else if (file.exists()) {
        remarks += tr("The file exists already and will be replaced.");
    }
    if (!selection()) {
        remarks = QStringList(tr("The range is not complete, or its end is in front of its "
                                 "beginning."));
        mayWrite = false;
    }
    remarks.removeAll(QString());
    remark->setText(remarks.join(QLatin1Char(' ')));
    button->setEnabled(mayWrite);
}

std::optional<qint64> ExportDialog::timeIn(const QLineEdit *field) const
{
    QString error;
    return JumpTarget::time(field->text(), times, &error);
}

std::optional<TraceSelection> ExportDialog::selection() const
{
    TraceSelection wanted;
    const int part = group->checkedId();
    bool isFirst = true;
    bool isLast = true;
    if (part == Filtered) {
        wanted.expression = expression;
    } else if (part == Selected) {
        wanted.positions = selected;
    } else if (part == Positions) {
        wanted.first = firstOf[part]->text().trimmed().toULongLong(&isFirst);
        const quint64 last = lastOf[part]->text().trimmed().toULongLong(&isLast);
        wanted.behind = last + (last == std::numeric_limits<quint64>::max() ? 0 : 1);
    } else if (part == Times) {
        const auto first = timeIn(firstOf[part]);
        const auto last = timeIn(lastOf[part]);
        isFirst = first.has_value();
        isLast = last.has_value();
        wanted.firstTime = first.value_or(0);
        wanted.lastTime = last.value_or(0);
    }
    const bool isRange = wanted.first < wanted.behind && wanted.firstTime <= wanted.lastTime;
    return isFirst && isLast && isRange ? std::optional(wanted) : std::nullopt;
}

void ExportDialog::choose()
{
    update();
    if (!button->isEnabled())
        return;
    const QFileInfo file(targetPath());
    format->remember();
    QSettings().setValue(lastFolder, file.absolutePath());
    ExportOrder order;
    order.target = file.absoluteFilePath();
    order.format = format->format();
    order.times =
        deltas->isChecked() && format->hasDeltaTimes() ? TraceExport::Delta : TraceExport::Absolute;
    order.withNotes = notes->isChecked();
    emit chosen(order, *selection());
    accept();
}
