#include "misreads.h"

quint64 &LineFields::misreads()
{
    thread_local quint64 count = 0;
    return count;
}
