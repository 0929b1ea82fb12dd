#pragma once

#include "samples/receipt_page.h"

#include <QList>

// What the sample receipts say. Every seller, address and number is made up; expected.csv repeats the facts a
// reader has to find.
namespace fennick {

Page hotelInvoice();       // German labels, Swiss francs, arrival and departure beside the invoice's own date
QList<Page> officeOrder(); // two pages, a page total on the first
Page breakfastTicket();    // French
Page cinemaTickets();      // Swedish
Page pubDinner();
Page firstCoffee(); // these two are of the same day, place and price
Page secondCoffee();
Page recipe(); // no receipt at all
Page supermarket();
Page parkingTicket(); // without a date
Page deliLunch();     // month first
Page taxiRide();      // yen, no decimals
Page roastery();
Page fillingStation();

} // namespace fennick
