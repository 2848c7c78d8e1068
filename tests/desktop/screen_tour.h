// All screens of the program in turn, on an inventory with long names, findings, copied values and an interrupted edit.
#pragma once

#include <QSize>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <string>

namespace merlu::test {

using LookAt = std::function<void(QWidget& window, const std::string& name)>;

// Sixteen pieces on each of four structures, with faults, long names and long IDs.
void MakeTourInventory(const std::string& path);

// Shows the screens of these parts ("sheets", "docks", "dialogs", "grids", "boxes"; all when there is none) in a main
// window of that size, and hands over each.
void TourScreens(const QStringList& parts, const QSize& window, const LookAt& look);

}  // namespace merlu::test
