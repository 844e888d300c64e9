// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Observable.h"

#include "tests/Printing.h"

#include <QCoreApplication>

using namespace ardeno;

namespace {

struct Owner {
    PublishedBy<int, Owner> number;
    PublishedBy<QString, Owner> text;

    void change(int newNumber, const QString &newText)
    {
        const PublishTogether group;
        number.set(newNumber);
        text.set(newText);
    }
};

} // namespace

TEST_CASE("a watcher hears once of changes made together, with all of them in place")
{
    Owner owner;
    QStringList heard;
    Subscriptions subscriptions;
    subscriptions.watch([&] { heard << QString::number(owner.number()) + owner.text(); }, owner.number, owner.text);
    CHECK(heard == QStringList{"0"});

    owner.change(1, "a");
    owner.change(2, "b");
    QCoreApplication::processEvents();
    CHECK(heard == QStringList{"0", "2b"});

    owner.change(2, "b");
    QCoreApplication::processEvents();
    CHECK(heard.size() == 2);
}

TEST_CASE("a watcher that is gone hears nothing, not even what was on its way")
{
    Owner owner;
    int calls = 0;
    {
        Subscriptions subscriptions;
        subscriptions.watch([&] { ++calls; }, owner.number);
        owner.change(1, {});
    }
    owner.change(2, {});
    QCoreApplication::processEvents();
    CHECK(calls == 1);
}
