#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

class CurvePlot;
class IdentifierTable;
class LineTable;
class QTableView;
class TraceDigest;

/// A page of the statistics: draws its curves a few times a second, while it is in sight.
class StatisticsPage : public QWidget
{
    Q_OBJECT
public:
    explicit StatisticsPage(QWidget *parent = nullptr);

    /// Null for none.
    virtual void setDigest(TraceDigest *digest);

protected:
    TraceDigest *digest() const { return ownDigest; }
    virtual void drawCurves() = 0;
    void drawSoon();

    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void draw();

    QPointer<TraceDigest> ownDigest;
    QTimer drawing;
};

/// Load, rate and error frames of each line.
class LinesPage : public StatisticsPage
{
    Q_OBJECT
public:
    explicit LinesPage(QWidget *parent = nullptr);

    void setDigest(TraceDigest *digest) override;

protected:
    void drawCurves() override;

private:
    LineTable *const model;
    QTableView *const table;
    CurvePlot *const loads;
    CurvePlot *const rates;
};

/// Counts and periods of each identifier, and the rate of the chosen one.
class IdentifiersPage : public StatisticsPage
{
    Q_OBJECT
public:
    explicit IdentifiersPage(QWidget *parent = nullptr);
    ~IdentifiersPage() override;

    void setDigest(TraceDigest *digest) override;

protected:
    void drawCurves() override;

private:
    void buildTable();

    IdentifierTable *const model;
    QTableView *const table;
    CurvePlot *const rate;
};
