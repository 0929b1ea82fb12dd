<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ArchiveFolderCommand</name>
    <message>
        <source>There is neither an archive folder nor a watched folder yet.</source>
        <translation>Es gibt noch weder einen Archivordner noch einen überwachten Ordner.</translation>
    </message>
    <message>
        <source>Nothing was archived yet: “%1” does not exist.</source>
        <extracomment>%1 is a folder.</extracomment>
        <translation>Es wurde noch nichts archiviert: „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>The archive folder cannot be opened.</source>
        <translation>Der Archivordner kann nicht geöffnet werden.</translation>
    </message>
</context>
<context>
    <name>Confirmations</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>Saves a %1 ledger and moves %n receipt file into “%2”, then clears the list. Your Photos are unaffected.</source>
        <extracomment>%1 is CSV or HTML, %2 a folder.</extracomment>
        <translation>
            <numerusform>Speichert eine %1-Aufstellung, verschiebt %Ln Belegdatei nach „%2“ und leert dann die Liste. Ihre Fotos bleiben unberührt.</numerusform>
            <numerusform>Speichert eine %1-Aufstellung, verschiebt %Ln Belegdateien nach „%2“ und leert dann die Liste. Ihre Fotos bleiben unberührt.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saves a %1 ledger and moves %n receipt files into “%2”, then clears the list. Your Photos are unaffected.</source>
        <extracomment>%1 is CSV or HTML, %2 a folder.</extracomment>
        <translation>
            <numerusform>Speichert eine %1-Aufstellung, verschiebt %Ln Belegdatei nach „%2“ und leert dann die Liste. Ihre Fotos bleiben unberührt.</numerusform>
            <numerusform>Speichert eine %1-Aufstellung, verschiebt %Ln Belegdateien nach „%2“ und leert dann die Liste. Ihre Fotos bleiben unberührt.</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear all receipts from the list?</source>
        <translation>Alle Belege aus der Liste entfernen?</translation>
    </message>
    <message>
        <source>This empties the list. Your renamed files stay in the folder and won&apos;t be re-scanned.</source>
        <translation>Die Liste wird geleert. Ihre umbenannten Dateien bleiben im Ordner und werden nicht erneut gescannt.</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Liste leeren</translation>
    </message>
    <message>
        <source>Export, archive, and clear this batch?</source>
        <translation>Diesen Stapel exportieren, archivieren und leeren?</translation>
    </message>
    <message>
        <source>Export, Archive &amp;&amp; Clear</source>
        <translation>Exportieren, archivieren &amp;&amp; leeren</translation>
    </message>
    <message>
        <source>Quit without saving your corrections?</source>
        <translation>Beenden, ohne Ihre Korrekturen zu speichern?</translation>
    </message>
    <message>
        <source>You have changed fields in the receipt details and not saved them.</source>
        <translation>Sie haben Felder in den Einzelheiten eines Belegs geändert und nicht gespeichert.</translation>
    </message>
    <message>
        <source>Quit Without Saving</source>
        <translation>Ohne Speichern beenden</translation>
    </message>
    <message numerus="yes">
        <source>Open %n files?</source>
        <translation>
            <numerusform>%Ln Datei öffnen?</numerusform>
            <numerusform>%Ln Dateien öffnen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Each opens in the program that your desktop uses for it.</source>
        <translation>Jede öffnet sich in dem Programm, das Ihr Desktop dafür verwendet.</translation>
    </message>
    <message>
        <source>Open All</source>
        <translation>Alle öffnen</translation>
    </message>
    <message>
        <source>Read again and lose your corrections?</source>
        <translation>Erneut lesen und Ihre Korrekturen verlieren?</translation>
    </message>
    <message>
        <source>You have corrected one of these receipts by hand. What is read now takes the place of what you typed.</source>
        <translation>Sie haben einen dieser Belege von Hand korrigiert. Was jetzt gelesen wird, ersetzt, was Sie eingegeben haben.</translation>
    </message>
    <message numerus="yes">
        <source>You have corrected %n of these receipts by hand. What is read now takes the place of what you typed.</source>
        <translation>
            <numerusform>Sie haben %Ln dieser Belege von Hand korrigiert. Was jetzt gelesen wird, ersetzt, was Sie eingegeben haben.</numerusform>
            <numerusform>Sie haben %Ln dieser Belege von Hand korrigiert. Was jetzt gelesen wird, ersetzt, was Sie eingegeben haben.</numerusform>
        </translation>
    </message>
    <message>
        <source>Read Again</source>
        <translation>Erneut lesen</translation>
    </message>
</context>
<context>
    <name>ConverterError</name>
    <message>
        <source>The converter could not be started: %1</source>
        <translation>Der Konverter konnte nicht gestartet werden: %1</translation>
    </message>
    <message>
        <source>Unsupported file type: .%1</source>
        <extracomment>%1 is a file name extension.</extracomment>
        <translation>Nicht unterstützter Dateityp: .%1</translation>
    </message>
    <message>
        <source>Could not open PDF</source>
        <translation>PDF konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Could not render page image</source>
        <translation>Seitenbild konnte nicht erzeugt werden</translation>
    </message>
    <message>
        <source>Could not encode JPEG</source>
        <translation>JPEG konnte nicht kodiert werden</translation>
    </message>
</context>
<context>
    <name>Exception</name>
    <message>
        <source>There is not enough memory for this file.</source>
        <translation>Der Speicher reicht für diese Datei nicht aus.</translation>
    </message>
    <message>
        <source>Something unexpected happened: %1</source>
        <translation>Etwas Unerwartetes ist passiert: %1</translation>
    </message>
    <message>
        <source>Something unexpected happened.</source>
        <translation>Etwas Unerwartetes ist passiert.</translation>
    </message>
</context>
<context>
    <name>ExportPanel</name>
    <message>
        <source>Export Receipts</source>
        <translation>Belege exportieren</translation>
    </message>
    <message>
        <source>“%1” already exists. Do you want to replace it?</source>
        <translation>„%1“ gibt es schon. Soll die Datei ersetzt werden?</translation>
    </message>
</context>
<context>
    <name>FieldProblem</name>
    <message>
        <source>There is no %1</source>
        <extracomment>%1 is a day that does not exist, such as &quot;31 February&quot;.</extracomment>
        <translation>Den %1 gibt es nicht</translation>
    </message>
    <message>
        <source>There is no month %1</source>
        <extracomment>%1 is a number.</extracomment>
        <translation>Einen Monat %1 gibt es nicht</translation>
    </message>
    <message>
        <source>Write the date like 2024-05-31 or %1</source>
        <extracomment>%1 is a date as the user&apos;s locale writes it.</extracomment>
        <translation>Schreiben Sie das Datum wie 2024-05-31 oder %1</translation>
    </message>
    <message>
        <source>Write the time like 14:30</source>
        <translation>Schreiben Sie die Uhrzeit wie 14:30</translation>
    </message>
    <message>
        <source>Write the amount like %1</source>
        <extracomment>%1 is a number as the user&apos;s locale writes it.</extracomment>
        <translation>Schreiben Sie den Betrag wie %1</translation>
    </message>
    <message>
        <source>There is no currency “%1”</source>
        <extracomment>%1 is what was typed.</extracomment>
        <translation>Eine Währung „%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>There is no category “%1”</source>
        <extracomment>%1 is what was typed.</extracomment>
        <translation>Eine Kategorie „%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The language&apos;s code, for the names of months.</extracomment>
        <translation>de</translation>
    </message>
    <message>
        <source>%1 %2 %3</source>
        <extracomment>Follows &quot;There is no&quot;: %1 is a day, %2 the name of a month, %3 a year.</extracomment>
        <translation>%1. %2 %3</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>Follows &quot;There is no&quot;: %1 is a day, %2 the name of a month.</extracomment>
        <translation>%1. %2</translation>
    </message>
</context>
<context>
    <name>FileProblem</name>
    <message>
        <source>The file is a link. Put the file itself into the folder to scan it.</source>
        <translation>Die Datei ist eine Verknüpfung. Legen Sie die Datei selbst in den Ordner, um sie zu scannen.</translation>
    </message>
    <message>
        <source>This is not a regular file.</source>
        <translation>Dies ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The file was changed before it could be read. Retry to scan it as it is now.</source>
        <translation>Die Datei wurde geändert, bevor sie gelesen werden konnte. Versuchen Sie es erneut, um sie in ihrem jetzigen Zustand zu scannen.</translation>
    </message>
    <message>
        <source>The file is larger than 100 MB.</source>
        <translation>Die Datei ist größer als 100 MB.</translation>
    </message>
    <message>
        <source>The folder does not respond. Is its network connected?</source>
        <translation>Der Ordner antwortet nicht. Ist sein Netzwerk verbunden?</translation>
    </message>
</context>
<context>
    <name>FolderChooser</name>
    <message>
        <source>Choose a Folder</source>
        <translation>Ordner auswählen</translation>
    </message>
</context>
<context>
    <name>GeminiError</name>
    <message>
        <source>Gemini API error: %1</source>
        <translation>Fehler der Gemini-API: %1</translation>
    </message>
    <message>
        <source>Gemini API error: %1 — %2</source>
        <extracomment>%1 is the number of an HTTP status, %2 what the service has written.</extracomment>
        <translation>Fehler der Gemini-API: %1 – %2</translation>
    </message>
    <message>
        <source>Failed to read file: %1</source>
        <translation>Datei konnte nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Gemini API returned error %1: %2</source>
        <translation>Die Gemini-API meldet Fehler %1: %2</translation>
    </message>
    <message>
        <source>Gemini API returned no text content. Finish reason: %1</source>
        <extracomment>%1 is a name from the service, like MAX_TOKENS.</extracomment>
        <translation>Die Gemini-API hat keinen Text geliefert. Grund des Endes: %1</translation>
    </message>
    <message>
        <source>Could not parse JSON from Gemini response. Raw response: %1</source>
        <translation>Das JSON in der Antwort von Gemini konnte nicht gelesen werden. Unveränderte Antwort: %1</translation>
    </message>
    <message>
        <source>Gemini API returned no candidates in response</source>
        <translation>Die Antwort der Gemini-API enthält keine Kandidaten</translation>
    </message>
</context>
<context>
    <name>PhotoPermission</name>
    <message>
        <source>Photos Access</source>
        <translation>Zugriff auf Fotos</translation>
    </message>
    <message>
        <source>Fennick would like to add receipts to your photo library.</source>
        <translation>Fennick möchte Belege zu Ihrer Fotosammlung hinzufügen.</translation>
    </message>
    <message>
        <source>JPEG copies of your receipts are put into the folder “%1”.</source>
        <translation>JPEG-Kopien Ihrer Belege werden im Ordner „%1“ abgelegt.</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Don’t Allow</source>
        <translation>Nicht erlauben</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Erlauben</translation>
    </message>
</context>
<context>
    <name>PhotosError</name>
    <message>
        <source>Photos access was not granted. Enable it in System Settings ▸ Privacy &amp; Security ▸ Photos.</source>
        <translation>Der Zugriff auf Fotos wurde nicht gewährt. Erlauben Sie ihn unter Systemeinstellungen ▸ Datenschutz &amp; Sicherheit ▸ Fotos.</translation>
    </message>
    <message>
        <source>Failed to add image to Photos: %1</source>
        <translation>Bild konnte nicht zu Fotos hinzugefügt werden: %1</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>The system has not said why an image could not be added.</extracomment>
        <translation>unbekannt</translation>
    </message>
</context>
<context>
    <name>ReceiptQuery</name>
    <message>
        <source>failed</source>
        <extracomment>Typed to find receipts whose scan has failed.</extracomment>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>no photo</source>
        <extracomment>Typed to find receipts that were not added to the photo library.</extracomment>
        <translation>kein foto</translation>
    </message>
    <message>
        <source>duplicate</source>
        <extracomment>Typed to find receipts that may be in the list twice.</extracomment>
        <translation>duplikat</translation>
    </message>
</context>
<context>
    <name>Report</name>
    <message>
        <source>No. %1</source>
        <translation>Nr. %1</translation>
    </message>
    <message>
        <source>Without a currency</source>
        <translation>Ohne Währung</translation>
    </message>
    <message>
        <source>The document is protected by a password.</source>
        <translation>Das Dokument ist durch ein Passwort geschützt.</translation>
    </message>
    <message>
        <source>The file is damaged or no receipt.</source>
        <translation>Die Datei ist beschädigt oder kein Beleg.</translation>
    </message>
    <message>
        <source>The document has no pages.</source>
        <translation>Das Dokument hat keine Seiten.</translation>
    </message>
    <message>
        <source>The document takes too much memory or has too many pages.</source>
        <translation>Das Dokument braucht zu viel Speicher oder hat zu viele Seiten.</translation>
    </message>
    <message>
        <source>The file is a link.</source>
        <translation>Die Datei ist eine Verknüpfung.</translation>
    </message>
    <message>
        <source>The file was changed while it was read.</source>
        <translation>Die Datei wurde geändert, während sie gelesen wurde.</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The code of the language of this translation.</extracomment>
        <translation>de</translation>
    </message>
    <message>
        <source>Receipts</source>
        <translation>Belege</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Zusammenfassung</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Totals</source>
        <translation>Summen</translation>
    </message>
    <message>
        <source>This receipt could not be opened.</source>
        <translation>Dieser Beleg konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The program that makes it could not be started: %1</source>
        <translation>Das Programm, das ihn erstellt, konnte nicht gestartet werden: %1</translation>
    </message>
    <message>
        <source>There is a link of this name.</source>
        <translation>Es gibt eine Verknüpfung mit diesem Namen.</translation>
    </message>
    <message>
        <source>The file could not be written. Is the disk full?</source>
        <translation>Die Datei konnte nicht geschrieben werden. Ist der Datenträger voll?</translation>
    </message>
    <message>
        <source>The program that makes it ended unexpectedly.</source>
        <translation>Das Programm, das ihn erstellt, wurde unerwartet beendet.</translation>
    </message>
    <message>
        <source>The program that makes it ended unexpectedly at this receipt: %1</source>
        <extracomment>%1 is a receipt&apos;s number, date, place and amount.</extracomment>
        <translation>Das Programm, das ihn erstellt, wurde bei diesem Beleg unerwartet beendet: %1</translation>
    </message>
    <message>
        <source>1 receipt</source>
        <translation>1 Beleg</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts</source>
        <translation>
            <numerusform>%Ln Beleg</numerusform>
            <numerusform>%Ln Belege</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransportError</name>
    <message>
        <source>The answer is larger than %1 MB.</source>
        <translation>Die Antwort ist größer als %1&#xa0;MB.</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>Zeitüberschreitung bei der Anfrage.</translation>
    </message>
    <message>
        <source>Connection closed</source>
        <translation>Verbindung geschlossen</translation>
    </message>
    <message>
        <source>The service has ended unexpectedly.</source>
        <translation>Der Dienst wurde unerwartet beendet.</translation>
    </message>
    <message>
        <source>The on-device engine could not be started: %1</source>
        <translation>Die lokale Texterkennung konnte nicht gestartet werden: %1</translation>
    </message>
    <message>
        <source>Decompression failed</source>
        <translation>Dekomprimieren fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>UndoProblem</name>
    <message>
        <source>It is no longer in the list.</source>
        <translation>Er ist nicht mehr in der Liste.</translation>
    </message>
    <message>
        <source>The list has this file already.</source>
        <translation>Die Liste enthält diese Datei schon.</translation>
    </message>
    <message>
        <source>It is being read.</source>
        <translation>Er wird gerade gelesen.</translation>
    </message>
    <message>
        <source>Fields that have changed since stay as they are.</source>
        <translation>Seither geänderte Felder bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>The file is no longer there.</source>
        <translation>Die Datei ist nicht mehr da.</translation>
    </message>
    <message>
        <source>Another file has this name; it is now “%1”.</source>
        <extracomment>%1 is a file&apos;s name.</extracomment>
        <translation>Eine andere Datei hat diesen Namen; sie heißt jetzt „%1“.</translation>
    </message>
    <message>
        <source>The file stays where it is: %1</source>
        <extracomment>%1 is the reason.</extracomment>
        <translation>Die Datei bleibt, wo sie ist: %1</translation>
    </message>
    <message>
        <source>The file stays where it is: it was not in the watched folder.</source>
        <translation>Die Datei bleibt, wo sie ist: Sie war nicht im überwachten Ordner.</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>Sie konnte nicht in den Papierkorb gelegt werden.</translation>
    </message>
    <message>
        <source>The folder does not respond.</source>
        <translation>Der Ordner antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>UndoReport</name>
    <message numerus="yes">
        <source>… and %n more</source>
        <translation>
            <numerusform>… und %Ln weitere Zeile</numerusform>
            <numerusform>… und %Ln weitere Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>Not everything could be done.</source>
        <translation>Nicht alles war möglich.</translation>
    </message>
</context>
<context>
    <name>WatchFolderChooser</name>
    <message>
        <source>Watch This Folder</source>
        <translation>Diesen Ordner überwachen</translation>
    </message>
</context>
<context>
    <name>fennick::AppState</name>
    <message>
        <source>The list could not be saved: %1</source>
        <translation>Die Liste konnte nicht gespeichert werden: %1</translation>
    </message>
</context>
<context>
    <name>fennick::Archive</name>
    <message>
        <source>No archive location set — choose one in Settings.</source>
        <translation>Kein Archivordner festgelegt – wählen Sie einen in den Einstellungen.</translation>
    </message>
    <message>
        <source>Couldn&apos;t create archive folder: %1</source>
        <translation>Der Archivordner konnte nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>Nothing was archived: %1</source>
        <translation>Es wurde nichts archiviert: %1</translation>
    </message>
</context>
<context>
    <name>fennick::ArchiveDeed</name>
    <message>
        <source>Archive &amp; Clear</source>
        <extracomment>What the menu&apos;s Undo takes back.</extracomment>
        <translation>Archivieren &amp; leeren</translation>
    </message>
</context>
<context>
    <name>fennick::ClearDeed</name>
    <message>
        <source>Clear All</source>
        <extracomment>What the menu&apos;s Undo takes back.</extracomment>
        <translation>Liste leeren</translation>
    </message>
</context>
<context>
    <name>fennick::CorrectionDeed</name>
    <message>
        <source>Correction of “%1”</source>
        <extracomment>What the menu&apos;s Undo takes back. %1 is a place or a file&apos;s name.</extracomment>
        <translation>Korrektur von „%1“</translation>
    </message>
</context>
<context>
    <name>fennick::DetailsWindow</name>
    <message>
        <source>Processing</source>
        <translation>In Arbeit</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Receipt Details</source>
        <translation>Einzelheiten des Belegs</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Vorige Seite</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Scanned</source>
        <translation>Gescannt</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Stores the corrected fields.</extracomment>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Revert</source>
        <extracomment>Takes back what was typed.</extracomment>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Select a receipt in the list.</source>
        <translation>Wählen Sie einen Beleg in der Liste aus.</translation>
    </message>
    <message>
        <source>Added to Photos</source>
        <translation>Zu Fotos hinzugefügt</translation>
    </message>
    <message>
        <source>Not added to Photos</source>
        <translation>Nicht zu Fotos hinzugefügt</translation>
    </message>
    <message>
        <source>Opening the receipt…</source>
        <translation>Beleg wird geöffnet&#xa0;…</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <extracomment>%1 is the number of the page on the screen, %2 how many there are.</extracomment>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>Possible duplicate of</source>
        <extracomment>Follows: the name of another receipt&apos;s file, as a link.</extracomment>
        <translation>Mögliches Duplikat von</translation>
    </message>
    <message>
        <source>%1 (archived)</source>
        <extracomment>%1 is the name of a file.</extracomment>
        <translation>%1 (archiviert)</translation>
    </message>
</context>
<context>
    <name>fennick::DroppedFiles</name>
    <message>
        <source>Couldn&apos;t copy %1: %2</source>
        <translation>%1 konnte nicht kopiert werden: %2</translation>
    </message>
</context>
<context>
    <name>fennick::EmptyState</name>
    <message>
        <source>Choose a folder to watch, then drop in receipt PDFs or photos.
Each one is scanned, renamed, and added to Photos for Workday mobile.</source>
        <translation>Wählen Sie einen Ordner und legen Sie dort PDFs oder Fotos von Belegen ab.
Jeder Beleg wird gescannt, umbenannt und für Workday Mobile zu Fotos hinzugefügt.</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Ordner auswählen&#xa0;…</translation>
    </message>
    <message>
        <source>No receipts yet</source>
        <translation>Noch keine Belege</translation>
    </message>
</context>
<context>
    <name>fennick::FennickApp</name>
    <message>
        <source>Scanning %1 of %2</source>
        <extracomment>%1 is the number of the receipt under way, %2 how many there are.</extracomment>
        <translation>%L1 von %L2 wird gescannt</translation>
    </message>
    <message>
        <source>The API key could not be stored: the secret store does not answer.</source>
        <translation>Der API-Schlüssel konnte nicht gespeichert werden: Der Geheimnisspeicher antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>fennick::FindLine</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Words, 12.50, &gt;100, eur, march 2024, failed, no photo</source>
        <extracomment>What can be typed to find receipts. Keep &quot;&gt;100&quot;; the others as they are understood in your language.</extracomment>
        <translation>Wörter, 12,50, &gt;100, eur, märz 2024, fehlgeschlagen, kein foto</translation>
    </message>
    <message>
        <source>Close Find</source>
        <translation>Suche schließen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <extracomment>%1 is the number of receipts that were found, %2 that of all.</extracomment>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 of %2 receipts found</source>
        <translation>%1 von %2 Belegen gefunden</translation>
    </message>
</context>
<context>
    <name>fennick::FolderAdmission</name>
    <message>
        <source>The folder is not watched, because the list of what is already in it could not be saved: %1</source>
        <translation>Der Ordner wird nicht überwacht, weil die Liste seines jetzigen Inhalts nicht gespeichert werden konnte: %1</translation>
    </message>
</context>
<context>
    <name>fennick::FormerArchives</name>
    <message>
        <source>The former archive folder could not be remembered: %1</source>
        <translation>Der frühere Archivordner konnte nicht vermerkt werden: %1</translation>
    </message>
</context>
<context>
    <name>fennick::HomeView</name>
    <message>
        <source>Photos export on</source>
        <translation>Fotos-Export ein</translation>
    </message>
    <message>
        <source>Set your Gemini API key in Settings (⌘,) to start scanning.</source>
        <extracomment>Names the shortcut of the settings on the reader&apos;s keyboard.</extracomment>
        <translation>Tragen Sie zum Scannen Ihren Gemini-API-Schlüssel in den Einstellungen (Strg+,) ein.</translation>
    </message>
    <message>
        <source>No folder selected</source>
        <translation>Kein Ordner ausgewählt</translation>
    </message>
    <message>
        <source>This folder is missing. Receipts are read again when it is back.</source>
        <translation>Dieser Ordner fehlt. Belege werden wieder gelesen, sobald er zurück ist.</translation>
    </message>
</context>
<context>
    <name>fennick::IgnoredFilesDialog</name>
    <message>
        <source>Restore</source>
        <extracomment>A button: lets the selected files be read again.</extracomment>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Ignored Files</source>
        <translation>Ignorierte Dateien</translation>
    </message>
    <message>
        <source>Fennick does not read these files, because they have left the list. Files that you restore are read again if they lie in the watched folder.</source>
        <translation>Fennick liest diese Dateien nicht, weil sie die Liste verlassen haben. Dateien, die Sie wiederherstellen, werden wieder gelesen, wenn sie im überwachten Ordner liegen.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Ignored Since</source>
        <translation>Ignoriert seit</translation>
    </message>
</context>
<context>
    <name>fennick::KeyNotices</name>
    <message>
        <source>The service does not accept the API key. Save a valid one in the settings.</source>
        <translation>Der Dienst akzeptiert den API-Schlüssel nicht. Speichern Sie in den Einstellungen einen gültigen.</translation>
    </message>
</context>
<context>
    <name>fennick::MainActions</name>
    <message>
        <source>Choose Folder</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>Export as CSV…</source>
        <translation>Als CSV exportieren&#xa0;…</translation>
    </message>
    <message>
        <source>Export as HTML…</source>
        <translation>Als HTML exportieren&#xa0;…</translation>
    </message>
    <message>
        <source>Export CSV, Archive &amp;&amp; Clear</source>
        <translation>CSV exportieren, archivieren &amp;&amp; leeren</translation>
    </message>
    <message>
        <source>Export HTML, Archive &amp;&amp; Clear</source>
        <translation>HTML exportieren, archivieren &amp;&amp; leeren</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Liste leeren</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <extracomment>Shows the file in the desktop&apos;s file manager.</extracomment>
        <translation>Im Dateimanager anzeigen</translation>
    </message>
    <message>
        <source>Add to Photos</source>
        <translation>Zu Fotos hinzufügen</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Copy Summary</source>
        <translation>Beschreibung kopieren</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>Quit Fennick</source>
        <translation>Fennick beenden</translation>
    </message>
    <message>
        <source>Details…</source>
        <translation>Einzelheiten&#xa0;…</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Aus der Liste entfernen</translation>
    </message>
    <message>
        <source>Copy</source>
        <extracomment>The selected rows, as a table for the clipboard.</extracomment>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Read Again</source>
        <translation>Erneut lesen</translation>
    </message>
    <message>
        <source>Retry All Failed</source>
        <translation>Alle fehlgeschlagenen erneut versuchen</translation>
    </message>
    <message>
        <source>Stop Retrying</source>
        <translation>Nicht weiter versuchen</translation>
    </message>
    <message>
        <source>Find…</source>
        <translation>Suchen&#xa0;…</translation>
    </message>
    <message>
        <source>Export as PDF Report…</source>
        <translation>Als PDF-Bericht exportieren&#xa0;…</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Open Archive Folder</source>
        <translation>Archivordner öffnen</translation>
    </message>
    <message>
        <source>Restore Ignored Files…</source>
        <translation>Ignorierte Dateien wiederherstellen&#xa0;…</translation>
    </message>
    <message>
        <source>Summary…</source>
        <translation>Übersicht&#xa0;…</translation>
    </message>
</context>
<context>
    <name>fennick::MainWindow</name>
    <message>
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Archive &amp;&amp; Clear</source>
        <translation>Archivieren &amp;&amp; leeren</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Receipt</source>
        <translation>&amp;Beleg</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>B&amp;earbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
</context>
<context>
    <name>fennick::MenuBarContent</name>
    <message>
        <source>Show Receipts</source>
        <translation>Belege anzeigen</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message>
        <source>Quit Fennick</source>
        <translation>Fennick beenden</translation>
    </message>
    <message>
        <source>No receipts yet</source>
        <translation>Noch keine Belege</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts</source>
        <translation>
            <numerusform>%Ln Beleg</numerusform>
            <numerusform>%Ln Belege</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>fennick::Notices</name>
    <message>
        <source>1 receipt scanned</source>
        <translation>1 Beleg gescannt</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts scanned</source>
        <translation>
            <numerusform>%Ln Beleg gescannt</numerusform>
            <numerusform>%Ln Belege gescannt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <extracomment>Receipts; follows &quot;3 receipts scanned&quot;.</extracomment>
        <translation>
            <numerusform>%Ln fehlgeschlagen</numerusform>
            <numerusform>%Ln fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message>
        <source>, </source>
        <extracomment>Between &quot;3 receipts scanned&quot; and &quot;1 failed&quot;.</extracomment>
        <translation>, </translation>
    </message>
    <message>
        <source>1 receipt failed for want of a valid API key. It can be retried now, also later with Retry All Failed.</source>
        <extracomment>&quot;Retry All Failed&quot; is the text of a menu entry.</extracomment>
        <translation>1 Beleg ist fehlgeschlagen, weil ein gültiger API-Schlüssel fehlte. Der Scan kann jetzt erneut versucht werden, auch später mit „Alle fehlgeschlagenen erneut versuchen“.</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts failed for want of a valid API key. They can be retried now, also later with Retry All Failed.</source>
        <translation>
            <numerusform>%Ln Beleg ist fehlgeschlagen, weil ein gültiger API-Schlüssel fehlte. Der Scan kann jetzt erneut versucht werden, auch später mit „Alle fehlgeschlagenen erneut versuchen“.</numerusform>
            <numerusform>%Ln Belege sind fehlgeschlagen, weil ein gültiger API-Schlüssel fehlte. Die Scans können jetzt erneut versucht werden, auch später mit „Alle fehlgeschlagenen erneut versuchen“.</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Couldn&apos;t save %1: %2</source>
        <extracomment>%1 is a file&apos;s name, %2 the reason.</extracomment>
        <translation>%1 konnte nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a file&apos;s name.</extracomment>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>The watched folder is missing: %1</source>
        <translation>Der überwachte Ordner fehlt: %1</translation>
    </message>
    <message>
        <source>Fennick keeps reading in the tray</source>
        <translation>Fennick liest im Infobereich weiter</translation>
    </message>
    <message>
        <source>Show</source>
        <extracomment>A button: shows the file that was saved in the desktop&apos;s file manager.</extracomment>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>1 may be a duplicate</source>
        <extracomment>Receipts; follows &quot;12 receipts scanned&quot;.</extracomment>
        <translation>1 ist vielleicht ein Duplikat</translation>
    </message>
    <message numerus="yes">
        <source>%n may be duplicates</source>
        <translation>
            <numerusform>%Ln ist vielleicht ein Duplikat</numerusform>
            <numerusform>%Ln sind vielleicht Duplikate</numerusform>
        </translation>
    </message>
    <message>
        <source>1 receipt archived</source>
        <translation>1 Beleg archiviert</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts archived</source>
        <translation>
            <numerusform>%Ln Beleg archiviert</numerusform>
            <numerusform>%Ln Belege archiviert</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo</source>
        <extracomment>Buttons: take the archive back, and show its folder in the desktop&apos;s file manager.</extracomment>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>fennick::Notifier</name>
    <message>
        <source>Show Receipts</source>
        <translation>Belege anzeigen</translation>
    </message>
</context>
<context>
    <name>fennick::OnDeviceEngine</name>
    <message>
        <source>it does not answer</source>
        <extracomment>Follows &quot;The on-device engine could not be started: &quot;.</extracomment>
        <translation>sie antwortet nicht</translation>
    </message>
    <message>
        <source>it has ended unexpectedly</source>
        <translation>sie wurde unerwartet beendet</translation>
    </message>
</context>
<context>
    <name>fennick::PageView</name>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>The page could not be read</source>
        <translation>Die Seite konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>Marked: %1</source>
        <extracomment>For screen readers. %1 are names of fields, such as &quot;Date, Amount&quot;.</extracomment>
        <translation>Markiert: %1</translation>
    </message>
</context>
<context>
    <name>fennick::PhotosDelivery</name>
    <message>
        <source>Photos export failed: %1</source>
        <translation>Export zu Fotos fehlgeschlagen: %1</translation>
    </message>
</context>
<context>
    <name>fennick::ReadWithMenu</name>
    <message>
        <source>Read With</source>
        <extracomment>The submenu in which one chooses who reads the receipts.</extracomment>
        <translation>Lesen mit</translation>
    </message>
    <message>
        <source>Gemini</source>
        <translation>Gemini</translation>
    </message>
    <message>
        <source>Receipts are sent to Google&apos;s Gemini service, with your API key.</source>
        <translation>Belege werden mit Ihrem API-Schlüssel an den Dienst Gemini von Google gesendet.</translation>
    </message>
    <message>
        <source>This Computer</source>
        <extracomment>The receipts are read by this computer.</extracomment>
        <translation>Diesem Computer</translation>
    </message>
    <message>
        <source>Receipts are read on this computer and sent nowhere. No key is needed.</source>
        <translation>Belege werden auf diesem Computer gelesen und nirgendwohin gesendet. Ein Schlüssel wird nicht gebraucht.</translation>
    </message>
    <message>
        <source>Receipts are sent to %1, with your API key.</source>
        <extracomment>%1 is an address on the Internet.</extracomment>
        <translation>Belege werden mit Ihrem API-Schlüssel an %1 gesendet.</translation>
    </message>
</context>
<context>
    <name>fennick::ReceiptForm</name>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Zusammenfassung</translation>
    </message>
    <message>
        <source>Not found on the page</source>
        <translation>Nicht auf der Seite gefunden</translation>
    </message>
</context>
<context>
    <name>fennick::ReceiptsTable</name>
    <message>
        <source>Receipts</source>
        <translation>Belege</translation>
    </message>
</context>
<context>
    <name>fennick::ReceiptsTableModel</name>
    <message>
        <source>Processing</source>
        <translation>In Arbeit</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Added to Photos</source>
        <translation>Zu Fotos hinzugefügt</translation>
    </message>
    <message>
        <source>Not added to Photos</source>
        <translation>Nicht zu Fotos hinzugefügt</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Photos</source>
        <extracomment>The photo library; the column is 56 pixels wide.</extracomment>
        <translation>Fotos</translation>
    </message>
</context>
<context>
    <name>fennick::Recovery</name>
    <message>
        <source>The scan was interrupted. Retry to scan this receipt again.</source>
        <translation>Der Scan wurde unterbrochen. Versuchen Sie es erneut, um diesen Beleg noch einmal zu scannen.</translation>
    </message>
</context>
<context>
    <name>fennick::RemovalDeed</name>
    <message>
        <source>Remove from List</source>
        <extracomment>What the menu&apos;s Undo takes back.</extracomment>
        <translation>Aus der Liste entfernen</translation>
    </message>
</context>
<context>
    <name>fennick::ReportCommand</name>
    <message>
        <source>PDF Report</source>
        <translation>PDF-Bericht</translation>
    </message>
    <message>
        <source>Name on the report:</source>
        <translation>Name auf dem Bericht:</translation>
    </message>
    <message>
        <source>Receipt %1 of %2</source>
        <extracomment>%1 is the number of the receipt under way, %2 how many there are.</extracomment>
        <translation>Beleg %1 von %2</translation>
    </message>
</context>
<context>
    <name>fennick::RetryDeed</name>
    <message>
        <source>Retry of “%1”</source>
        <extracomment>What the menu&apos;s Undo takes back. %1 is a place or a file&apos;s name.</extracomment>
        <translation>Neuer Versuch mit „%1“</translation>
    </message>
    <message numerus="yes">
        <source>Retry of %n Receipts</source>
        <translation>
            <numerusform>Neuer Versuch mit %Ln Beleg</numerusform>
            <numerusform>Neuer Versuch mit %Ln Belegen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>fennick::RetryEntries</name>
    <message>
        <source>Stop Retrying</source>
        <translation>Nicht weiter versuchen</translation>
    </message>
    <message>
        <source>Retrying %1 of %2</source>
        <extracomment>%1 is the number of the receipt under way, %2 how many there are.</extracomment>
        <translation>Neuer Versuch %1 von %2</translation>
    </message>
</context>
<context>
    <name>fennick::RowActions</name>
    <message>
        <source>Reveal in Finder</source>
        <extracomment>Shows the file in the desktop&apos;s file manager.</extracomment>
        <translation>Im Dateimanager anzeigen</translation>
    </message>
    <message>
        <source>Add to Photos</source>
        <translation>Zu Fotos hinzufügen</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>fennick::ScanRun</name>
    <message>
        <source>API key not configured. Set your Gemini API key in Settings.</source>
        <translation>Kein API-Schlüssel eingerichtet. Tragen Sie Ihren Gemini-API-Schlüssel in den Einstellungen ein.</translation>
    </message>
</context>
<context>
    <name>fennick::SettingsFolderRow</name>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen&#xa0;…</translation>
    </message>
</context>
<context>
    <name>fennick::SettingsGeminiSection</name>
    <message>
        <source>Gemini</source>
        <translation>Gemini</translation>
    </message>
    <message>
        <source>Key saved</source>
        <translation>Schlüssel gespeichert</translation>
    </message>
    <message>
        <source>API Key</source>
        <translation>API-Schlüssel</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Save Key</source>
        <translation>Schlüssel speichern</translation>
    </message>
    <message>
        <source>Default: gemini-2.5-flash</source>
        <translation>Vorgabe: gemini-2.5-flash</translation>
    </message>
</context>
<context>
    <name>fennick::SettingsPhotosSection</name>
    <message>
        <source>Photos Export</source>
        <translation>Export zu Fotos</translation>
    </message>
    <message>
        <source>Add receipts to Photos</source>
        <translation>Belege zu Fotos hinzufügen</translation>
    </message>
    <message>
        <source>Group into a dated album</source>
        <translation>In einem Album mit Datum zusammenfassen</translation>
    </message>
    <message>
        <source>Photos access granted</source>
        <translation>Zugriff auf Fotos gewährt</translation>
    </message>
    <message>
        <source>Photos access denied — enable in System Settings ▸ Privacy</source>
        <translation>Zugriff auf Fotos verweigert – in den Systemeinstellungen ▸ Datenschutz erlauben</translation>
    </message>
    <message>
        <source>Grant Photos Access</source>
        <translation>Zugriff auf Fotos gewähren</translation>
    </message>
    <message>
        <source>Converts each receipt to JPEG and adds it to Photos, so iCloud syncs it to your iPhone for Workday&apos;s mobile Scan Receipt. Each photo is named after the receipt.</source>
        <translation>Wandelt jeden Beleg in JPEG um und fügt ihn zu Fotos hinzu, sodass iCloud ihn für die mobile Belegerfassung von Workday mit Ihrem iPhone abgleicht. Jedes Foto wird nach dem Beleg benannt.</translation>
    </message>
    <message>
        <source>Everything you process in one sitting goes into an album named “Expenses: &lt;today&apos;s date&gt;”, which also syncs to your iPhone.</source>
        <translation>Alles, was Sie in einem Durchgang verarbeiten, kommt in ein Album namens „Expenses: &lt;heutiges Datum&gt;“, das ebenfalls mit Ihrem iPhone abgeglichen wird.</translation>
    </message>
</context>
<context>
    <name>fennick::SettingsView</name>
    <message>
        <source>Fennick Settings</source>
        <translation>Fennick-Einstellungen</translation>
    </message>
    <message>
        <source>Watched Folder</source>
        <translation>Überwachter Ordner</translation>
    </message>
    <message>
        <source>Watched folder</source>
        <translation>Überwachter Ordner</translation>
    </message>
    <message>
        <source>New PDFs and photos dropped here are scanned automatically.</source>
        <translation>Neue PDFs und Fotos in diesem Ordner werden automatisch gescannt.</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Archiv</translation>
    </message>
    <message>
        <source>Archive folder</source>
        <translation>Archivordner</translation>
    </message>
    <message>
        <source>“Archive &amp; Clear” saves each batch — the receipt files and a CSV/HTML ledger — into a dated subfolder here.</source>
        <translation>„Archivieren &amp; leeren“ speichert jeden Stapel – die Belegdateien und eine CSV-/HTML-Aufstellung – hier in einem Unterordner mit Datum.</translation>
    </message>
    <message>
        <source>Startup &amp; Background</source>
        <translation>Start &amp; Hintergrund</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Beim Anmelden starten</translation>
    </message>
    <message>
        <source>Run in menu bar (hide Dock icon)</source>
        <extracomment>An entry in the desktop&apos;s tray and none in its task bar.</extracomment>
        <translation>Im Infobereich ausführen (nicht in der Taskleiste)</translation>
    </message>
    <message>
        <source>On this desktop a program cannot hide its own task-bar entry, so the entry stays.</source>
        <translation>Auf diesem Desktop kann ein Programm seinen Eintrag in der Taskleiste nicht ausblenden, daher bleibt der Eintrag.</translation>
    </message>
    <message>
        <source>None selected</source>
        <translation>Keiner ausgewählt</translation>
    </message>
    <message>
        <source>Default: “Receipt Archive” inside the watched folder</source>
        <translation>„Receipt Archive“ im überwachten Ordner</translation>
    </message>
    <message>
        <source>Archive Here</source>
        <translation>Hier archivieren</translation>
    </message>
</context>
<context>
    <name>fennick::SpendingModel</name>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>No date</source>
        <extracomment>Instead of a month, for receipts whose date is not known.</extracomment>
        <translation>Ohne Datum</translation>
    </message>
</context>
<context>
    <name>fennick::SummaryWindow</name>
    <message>
        <source>Include archives</source>
        <translation>Archive einbeziehen</translation>
    </message>
    <message>
        <source>No receipt has an amount yet.</source>
        <translation>Noch hat kein Beleg einen Betrag.</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken&#xa0;…</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Spending by month and category</source>
        <translation>Ausgaben nach Monat und Kategorie</translation>
    </message>
    <message>
        <source>Without currency</source>
        <translation>Ohne Währung</translation>
    </message>
</context>
<context>
    <name>fennick::UndoCommands</name>
    <message>
        <source>Undo %1</source>
        <extracomment>%1 is what was done, such as &quot;Clear All&quot;.</extracomment>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <extracomment>%1 is what was undone, such as &quot;Clear All&quot;.</extracomment>
        <translation>Wiederholen: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
</context>
<context>
    <name>fennick::UnreadableNames</name>
    <message>
        <source>The file&apos;s name cannot be read. Rename the file to scan it.</source>
        <translation>Der Name der Datei ist nicht lesbar. Benennen Sie die Datei um, um sie zu scannen.</translation>
    </message>
</context>
<context>
    <name>fennick::WatchFolderQuestion</name>
    <message>
        <source>It holds more than %1 unread PDFs and photos.</source>
        <extracomment>%1 is a number.</extracomment>
        <translation>Er enthält mehr als %1 ungelesene PDFs und Fotos.</translation>
    </message>
    <message>
        <source>It holds no unread PDFs or photos at the moment.</source>
        <translation>Er enthält zurzeit keine ungelesenen PDFs oder Fotos.</translation>
    </message>
    <message>
        <source>It holds 1 unread PDF or photo.</source>
        <translation>Er enthält 1 ungelesenes PDF oder Foto.</translation>
    </message>
    <message numerus="yes">
        <source>It holds %n unread PDFs and photos.</source>
        <translation>
            <numerusform>Er enthält %Ln ungelesenes PDF oder Foto.</numerusform>
            <numerusform>Er enthält %Ln ungelesene PDFs und Fotos.</numerusform>
        </translation>
    </message>
    <message>
        <source>Counting its PDFs and photos takes too long.</source>
        <translation>Seine PDFs und Fotos zu zählen dauert zu lange.</translation>
    </message>
    <message numerus="yes">
        <source>It holds at least %n unread PDFs and photos; counting all of them takes too long.</source>
        <translation>
            <numerusform>Er enthält mindestens %Ln ungelesenes PDF oder Foto; alle zu zählen dauert zu lange.</numerusform>
            <numerusform>Er enthält mindestens %Ln ungelesene PDFs und Fotos; alle zu zählen dauert zu lange.</numerusform>
        </translation>
    </message>
    <message>
        <source>“Read All” has this computer read and rename each of them, those in sub-folders too. They are sent nowhere.</source>
        <translation>Mit „Alle lesen“ liest dieser Computer sie alle und benennt sie um, auch die in Unterordnern. Sie werden nirgendwohin gesendet.</translation>
    </message>
    <message>
        <source>“Read All” sends each of them to Google&apos;s Gemini service and renames it, those in sub-folders too.</source>
        <translation>„Alle lesen“ sendet sie alle an den Dienst Gemini von Google und benennt sie um, auch die in Unterordnern.</translation>
    </message>
    <message>
        <source>“Read All” sends each of them to %1 and renames it, those in sub-folders too.</source>
        <extracomment>%1 is an address on the Internet.</extracomment>
        <translation>„Alle lesen“ sendet sie alle an %1 und benennt sie um, auch die in Unterordnern.</translation>
    </message>
    <message>
        <source>Read All</source>
        <extracomment>Reads every receipt file in the folder; the texts of the question name this button.</extracomment>
        <translation>Alle lesen</translation>
    </message>
    <message>
        <source>Only New Files</source>
        <extracomment>Reads only what is added to the folder later; the texts of the question name this button.</extracomment>
        <translation>Nur neue Dateien</translation>
    </message>
    <message>
        <source>Read everything in “%1”?</source>
        <translation>Alles in „%1“ lesen?</translation>
    </message>
    <message>
        <source>“Only New Files” leaves those that are there now unread for good. In either case what is added later is read.</source>
        <translation>„Nur neue Dateien“ lässt die jetzt vorhandenen für immer ungelesen. In beiden Fällen wird gelesen, was später hinzukommt.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Fennick is already running in another session of yours.</source>
        <translation>Fennick läuft bereits in einer anderen Sitzung von Ihnen.</translation>
    </message>
</context>
</TS>
