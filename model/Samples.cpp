// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/WorkspaceRecords.h"

#include "support/StoredText.h"

namespace ardeno {

namespace {

constexpr double hour = 3600; // Seconds.
constexpr double day = 24 * hour;

const QUuid projectID("269B6BF7-E352-4A22-8175-537AD036AB69");

Checkpoint madeBefore(double seconds, const QUuid &id)
{
    Checkpoint checkpoint{.id = id, .projectID = projectID};
    checkpoint.createdAt.seconds -= seconds;
    checkpoint.isSample = true;
    return checkpoint;
}

Checkpoint choosingTheLayout()
{
    Checkpoint checkpoint = madeBefore(day, QUuid("70B82BE0-2F23-4F9D-8DF6-F5DE12629A00"));
    checkpoint.title = "Choosing the layout";
    checkpoint.objective = "Compare two portfolio layouts and give the projects more space. "
                           "Use the simpler two-column layout.";
    checkpoint.nextStep = "Refine the navigation on mobile.";
    return checkpoint;
}

Checkpoint firstSketches()
{
    Checkpoint checkpoint = madeBefore(2 * day, QUuid("70B82BE0-2F23-4F9D-8DF6-F5DE12629A01"));
    checkpoint.title = "First sketches";
    checkpoint.objective = "Explore the structure for a new portfolio. Keep three sections: Work, About and Contact.";
    checkpoint.nextStep = "Try two layouts for the project gallery.";
    return checkpoint;
}

} // namespace

Project Project::sample()
{
    return {.id = projectID, .name = "Portfolio redesign", .isSample = true};
}

Checkpoint Checkpoint::sample()
{
    Checkpoint checkpoint = madeBefore(2 * hour, QUuid("AC838035-C075-4818-9669-88F0669E6618"));
    checkpoint.title = "Mobile navigation";
    checkpoint.objective = "Give the work more room to breathe. You were refining the project page and its mobile "
                           "navigation. Keep the bottom navigation. It makes the three main sections easier to reach "
                           "with one hand.";
    checkpoint.nextStep = "Check the navigation labels at 375px wide.";
    checkpoint.tabs = {{.title = "Human Interface Guidelines",
                        .url = "https://developer.gnome.org/hig/",
                        .browserID = "com.brave.Browser",
                        .browserName = "Brave"}};
    checkpoint.captureNote = storedText("An illustrative checkpoint. Nothing on your Mac has been captured.");
    return checkpoint;
}

QList<Checkpoint> Checkpoint::sampleHistory()
{
    return {sample(), choosingTheLayout(), firstSketches()};
}

} // namespace ardeno
