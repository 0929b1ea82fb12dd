#include "samples/sample_receipts.h"

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

Row title(const QString &text) {
    return {RowStyle::Title, text};
}

Row centre(const QString &text) {
    return {RowStyle::Centre, text};
}

Row item(const QString &left, const QString &right = {}) {
    return {RowStyle::Item, left, right};
}

Row strong(const QString &left, const QString &right) {
    return {RowStyle::Strong, left, right};
}

const Row rule{RowStyle::Rule, {}};
const Row gap{RowStyle::Gap, {}};

Page coffee(const QString &number, const QString &time) {
    return {
        title(u"Two Sparrows Espresso Bar"_s),
        centre(u"8 Mill Lane, Ashbourne"_s),
        centre(u"Tel 01632 960 114"_s),
        rule,
        item(u"Receipt "_s + number, u"Till 1"_s),
        item(u"12 Jun 2024"_s, time),
        rule,
        item(u"1 Flat white"_s, u"3.40"_s),
        item(u"1 Almond croissant"_s, u"4.00"_s),
        rule,
        strong(u"TOTAL"_s, u"£7.40"_s),
        item(u"Contactless"_s, u"£7.40"_s),
        item(u"VAT included"_s, u"£1.23"_s),
        rule,
        centre(u"See you soon!"_s),
    };
}

} // namespace

Page hotelInvoice() {
    return {
        title(u"Hotel Lindenhof"_s),
        centre(u"Seestrasse 41, 8002 Zürich"_s),
        centre(u"Telefon 044 555 01 20"_s),
        gap,
        strong(u"Rechnung"_s, u"Nr. 2024-0317"_s),
        item(u"Rechnungsdatum"_s, u"9. März 2024"_s),
        item(u"Anreise"_s, u"07.03.2024"_s),
        item(u"Abreise"_s, u"09.03.2024"_s),
        item(u"Zimmer"_s, u"214"_s),
        rule,
        item(u"2 Übernachtungen Einzelzimmer"_s, u"420.00"_s),
        item(u"Kurtaxe"_s, u"7.00"_s),
        item(u"Frühstück"_s, u"44.00"_s),
        item(u"Parkplatz"_s, u"15.40"_s),
        rule,
        item(u"Zwischensumme"_s, u"486.40"_s),
        item(u"davon MWST 3.8 %"_s, u"17.81"_s),
        strong(u"Gesamtbetrag"_s, u"CHF 486.40"_s),
        gap,
        item(u"Bezahlt mit Kreditkarte"_s),
        centre(u"Vielen Dank für Ihren Besuch"_s),
    };
}

QList<Page> officeOrder() {
    return {
        {
            title(u"Brightdesk Office Supplies"_s),
            centre(u"1900 Harbor Avenue, Suite 12, Portland, OR 97209"_s),
            gap,
            strong(u"INVOICE"_s, u"48213"_s),
            item(u"Invoice date"_s, u"May 1, 2024"_s),
            item(u"Payment due"_s, u"May 31, 2024"_s),
            item(u"Page 1 of 2"_s),
            rule,
            item(u"2 Standing desk frame"_s, u"$598.00"_s),
            item(u"2 Desk top, oak"_s, u"$310.00"_s),
            item(u"1 Monitor arm"_s, u"$89.50"_s),
            item(u"4 Cable tray"_s, u"$72.00"_s),
            rule,
            item(u"Page total"_s, u"$1,069.50"_s),
        },
        {
            item(u"Brightdesk Office Supplies"_s, u"Invoice 48213, page 2 of 2"_s),
            rule,
            item(u"Carried forward"_s, u"$1,069.50"_s),
            item(u"3 Printer paper, box"_s, u"$116.70"_s),
            item(u"1 Keyboard"_s, u"$64.00"_s),
            rule,
            item(u"Subtotal"_s, u"$1,250.20"_s),
            item(u"Delivery"_s, u"$25.00"_s),
            item(u"Sales tax"_s, u"$8.97"_s),
            strong(u"Amount due"_s, u"$1,284.17"_s),
            gap,
            item(u"Please pay by bank transfer and name the invoice number."_s),
        },
    };
}

Page breakfastTicket() {
    return {
        title(u"Auberge du Marronnier"_s),
        centre(u"3 place du Lavoir, 21200 Beaune"_s),
        centre(u"Tél. 03 80 55 01 77"_s),
        rule,
        item(u"Ticket 0592"_s, u"Table 6"_s),
        item(u"le 5 mai 2024"_s, u"9h10"_s),
        rule,
        item(u"2 Petit déjeuner"_s, u"15,00 €"_s),
        item(u"1 Jus d'orange"_s, u"3,60 €"_s),
        rule,
        item(u"Total HT"_s, u"16,91 €"_s),
        item(u"TVA 10 %"_s, u"1,69 €"_s),
        strong(u"Total TTC"_s, u"18,60 €"_s),
        item(u"Carte bancaire"_s, u"18,60 €"_s),
        centre(u"Merci et à bientôt"_s),
    };
}

Page cinemaTickets() {
    return {
        title(u"Bio Fyren"_s),
        centre(u"Hamngatan 22, Karlskrona"_s),
        rule,
        item(u"Kvitto 77120"_s, u"2024-11-16 18:05"_s),
        item(u"Biograf 2, rad 7, plats 11-12"_s),
        rule,
        item(u"2 Biljett vuxen"_s, u"260,00"_s),
        item(u"1 Popcorn stor"_s, u"65,00"_s),
        rule,
        item(u"Moms 6 %"_s, u"18,40"_s),
        strong(u"Totalt"_s, u"325,00 kr"_s),
        item(u"Kort"_s, u"325,00 kr"_s),
    };
}

Page pubDinner() {
    return {
        title(u"The Copper Kettle Tavern"_s),
        centre(u"27 Bridge Street, Ludlow"_s),
        centre(u"VAT No 123 4567 89"_s),
        rule,
        item(u"Table 14"_s, u"Covers 2"_s),
        item(u"14 March 2024"_s, u"19:42"_s),
        rule,
        item(u"1 Mushroom soup"_s, u"6.50"_s),
        item(u"1 Steak and ale pie"_s, u"16.95"_s),
        item(u"1 Sea bass"_s, u"18.75"_s),
        item(u"2 Draught beer"_s, u"11.00"_s),
        item(u"1 Sticky toffee"_s, u"8.00"_s),
        rule,
        item(u"Subtotal"_s, u"61.20"_s),
        item(u"VAT 20% included"_s, u"10.20"_s),
        strong(u"TOTAL"_s, u"£61.20"_s),
        item(u"Cash"_s, u"£80.00"_s),
        item(u"Change"_s, u"£18.80"_s),
        rule,
        centre(u"Thank you, please come again"_s),
    };
}

Page firstCoffee() {
    return coffee(u"1187"_s, u"09:05"_s);
}

Page secondCoffee() {
    return coffee(u"1243"_s, u"15:40"_s);
}

Page recipe() {
    return {
        title(u"Grandmother's apple cake"_s),
        gap,
        item(u"For the dough take three cups of flour, a pinch of"_s),
        item(u"salt, half a cup of sugar and a good piece of butter."_s),
        item(u"Let it rest in a cool place for an hour."_s),
        gap,
        item(u"Peel six large apples and cut them in thin slices."_s),
        item(u"Mix them with cinnamon, raisins and the juice of"_s),
        item(u"one lemon."_s),
        gap,
        item(u"Spread the apples over the dough and bake until the"_s),
        item(u"edges are golden brown."_s),
        item(u"Serve it warm, with cream."_s),
    };
}

Page supermarket() {
    return {
        title(u"Markthalle Sonnenfeld"_s),
        centre(u"Lange Gasse 9"_s),
        centre(u"04103 Leipzig"_s),
        rule,
        item(u"Milch 3,5%"_s, u"1,19 A"_s),
        item(u"Bauernbrot"_s, u"3,45 A"_s),
        item(u"Eier 10 Stk"_s, u"3,29 A"_s),
        item(u"Bergkäse"_s, u"7,84 A"_s),
        item(u"Tomaten"_s, u"2,99 A"_s),
        item(u"Kartoffeln 2 kg"_s, u"3,49 A"_s),
        item(u"Olivenöl"_s, u"11,98 A"_s),
        item(u"Pfand"_s, u"0,25 B"_s),
        rule,
        strong(u"SUMME EUR"_s, u"34,48"_s),
        item(u"Gegeben EUR"_s, u"50,00"_s),
        item(u"Rückgeld EUR"_s, u"15,52"_s),
        rule,
        item(u"MwSt A 7 %"_s, u"2,24"_s),
        item(u"01.05.2024  17:18 Uhr"_s, u"Kasse 3"_s),
        centre(u"Vielen Dank für Ihren Einkauf"_s),
    };
}

Page parkingTicket() {
    return {
        title(u"Quayside Car Park"_s),
        centre(u"Harbour Road, Whitcombe"_s),
        rule,
        item(u"Space"_s, u"B 27"_s),
        item(u"Parking fee, 3 hours"_s, u"£6.50"_s),
        rule,
        strong(u"Total paid"_s, u"£6.50"_s),
        item(u"Card payment"_s, u"approved"_s),
        centre(u"Keep this ticket until you leave"_s),
    };
}

Page deliLunch() {
    return {
        title(u"Juniper Street Deli"_s),
        centre(u"415 Juniper Street"_s),
        centre(u"Columbus, OH 43215"_s),
        rule,
        item(u"Check 3307"_s, u"Server: Dana"_s),
        item(u"05/13/2024 12:47 PM"_s, u"Guests 2"_s),
        rule,
        item(u"1 Turkey sandwich"_s, u"11.50"_s),
        item(u"1 Tomato soup"_s, u"6.25"_s),
        item(u"1 Garden salad"_s, u"9.75"_s),
        item(u"2 Iced tea"_s, u"6.00"_s),
        rule,
        item(u"Subtotal"_s, u"$33.50"_s),
        item(u"Sales tax 7.5%"_s, u"$2.51"_s),
        item(u"Tip"_s, u"$6.00"_s),
        strong(u"TOTAL"_s, u"$42.01"_s),
        item(u"Visa **** 4411"_s, u"$42.01"_s),
        rule,
        centre(u"Thank you!"_s),
    };
}

Page taxiRide() {
    return {
        title(u"Hibari Taxi"_s),
        centre(u"Minato Ward, Tokyo"_s),
        centre(u"Tel 03 5550 0142"_s),
        rule,
        item(u"Receipt"_s, u"No. 60418"_s),
        item(u"2024/04/09"_s, u"22:05"_s),
        item(u"Car"_s, u"No. 118"_s),
        rule,
        item(u"Fare"_s, u"¥2,660"_s),
        item(u"Toll"_s, u"¥320"_s),
        rule,
        strong(u"Total"_s, u"¥2,980"_s),
        rule,
        centre(u"Thank you for riding with us"_s),
    };
}

Page roastery() {
    return {
        title(u"Driftwood Coffee Roasters"_s),
        centre(u"2 Jetty Road, Fremantle WA"_s),
        centre(u"TAX INVOICE"_s),
        rule,
        item(u"Order 88"_s, u"Take away"_s),
        item(u"22/06/2024"_s, u"8:15 am"_s),
        rule,
        item(u"2 Flat white"_s, u"9.00"_s),
        item(u"1 Long black"_s, u"4.50"_s),
        rule,
        strong(u"Total (inc GST)"_s, u"A$13.50"_s),
        item(u"GST included"_s, u"A$1.23"_s),
        item(u"Card"_s, u"A$13.50"_s),
        rule,
        centre(u"Have a great day"_s),
    };
}

Page fillingStation() {
    return {
        title(u"Northline Fuel"_s),
        centre(u"6020 Lakeshore Drive, Kenora ON"_s),
        rule,
        item(u"Date 2024-08-03"_s, u"Time 16:20"_s),
        item(u"Pump 4"_s, u"Regular unleaded"_s),
        item(u"Litres"_s, u"41.182"_s),
        item(u"Price per litre"_s, u"1.557"_s),
        rule,
        item(u"Fuel"_s, u"$64.12"_s),
        item(u"HST 13%"_s, u"$8.34"_s),
        strong(u"TOTAL CAD"_s, u"$72.46"_s),
        item(u"Debit"_s, u"$72.46"_s),
        rule,
        centre(u"Drive safely"_s),
    };
}

} // namespace fennick
