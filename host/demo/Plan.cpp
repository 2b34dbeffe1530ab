#include "host/demo/Plan.h"

#include <algorithm>

#include "host/demo/WorkCalendar.h"

namespace folvane::demo {
namespace {

constexpr int kYearsBack = 4;  // the demo begins that many years before this one
constexpr int kYearsOpen = 2;  // of which the last two are not archived yet
constexpr int kItemsToVolume = 12;

// Shares of a hundred records.
constexpr int kOutgoingShare = 24, kItemsShare = 19, kSinglesShare = 11, kEventsShare = 3;
constexpr int kMostEvents = 400;

}  // namespace

Plan Plan::For(int records, QDate today) {
  Plan plan;
  plan.today = today;
  plan.first = QDate(today.year() - kYearsBack, 1, 4);
  plan.outgoing = records * kOutgoingShare / 100;
  plan.items = records * kItemsShare / 100;
  plan.singles = records * kSinglesShare / 100;
  plan.events = std::min(kMostEvents, records * kEventsShare / 100);

  const int lastArchived = today.year() - kYearsOpen;
  const WorkCalendar closed(plan.first, QDate(lastArchived, 12, 31));
  for (int year = plan.first.year(); year <= lastArchived; ++year) {
    const auto within = [&](int count) {
      return int(closed.CountBefore(year + 1, count) - closed.CountBefore(year, count));
    };
    ArchivedYear archived{.year = year, .items = within(plan.items), .volumes = 0, .singles = within(plan.singles)};
    if (archived.items > 0) archived.volumes = std::max(1, archived.items / kItemsToVolume);
    plan.volumes += archived.volumes;
    plan.archived.push_back(archived);
  }
  plan.incoming = records - plan.outgoing - plan.items - plan.singles - plan.volumes - plan.events;
  return plan;
}

}  // namespace folvane::demo
