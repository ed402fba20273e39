#pragma once

#include <QCoreApplication>

/// The store's texts that plain functions need. Their context is that of the store, whoever speaks
/// for it.
struct StoreTexts
{
    Q_DECLARE_TR_FUNCTIONS(DatachunkHandler)
};
