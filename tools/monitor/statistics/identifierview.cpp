#include "identifierview.h"

IdentifierView::IdentifierView(ShownTrace *trace, QWidget *parent) : QWidget(parent)
{
    Q_UNUSED(trace)
}
