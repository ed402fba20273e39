#pragma once

#include <QTimer>
#include <QWidget>

#include <vector>

class BackgroundJob;
class JobQueue;
class JobRow;
class QLabel;
class QVBoxLayout;

/// What is being done to files, a row for each job with its progress and a button that cancels it.
/// Takes no room while there is none.
class JobRows : public QWidget
{
    Q_OBJECT
public:
    /// \a queue must live as long.
    explicit JobRows(JobQueue *queue, QWidget *parent = nullptr);
    ~JobRows() override;

private:
    void refresh();

    JobQueue *const queue;
    QVBoxLayout *const layout;
    QLabel *const others; // those for which there is no row
    std::vector<JobRow *> rows;
    QTimer timer; // runs while there are jobs
};
