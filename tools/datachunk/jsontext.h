#pragma once

#include <QByteArray>
#include <QJsonDocument>

/// A document in one line, without a line end. Control characters above ASCII, which a terminal
/// obeys and JSON allows, are escaped as well.
QByteArray jsonText(const QJsonDocument &document);
