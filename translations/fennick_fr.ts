<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ArchiveFolderCommand</name>
    <message>
        <source>There is neither an archive folder nor a watched folder yet.</source>
        <translation>Il n’y a encore ni dossier d’archives ni dossier surveillé.</translation>
    </message>
    <message>
        <source>Nothing was archived yet: “%1” does not exist.</source>
        <extracomment>%1 is a folder.</extracomment>
        <translation>Rien n’a encore été archivé&#xa0;: «&#xa0;%1&#xa0;» n’existe pas.</translation>
    </message>
    <message>
        <source>The archive folder cannot be opened.</source>
        <translation>Le dossier d’archives ne peut pas être ouvert.</translation>
    </message>
</context>
<context>
    <name>Confirmations</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message numerus="yes">
        <source>Saves a %1 ledger and moves %n receipt file into “%2”, then clears the list. Your Photos are unaffected.</source>
        <extracomment>%1 is CSV or HTML, %2 a folder.</extracomment>
        <translation>
            <numerusform>Crée un relevé %1, déplace %Ln fichier de reçu dans «&#xa0;%2&#xa0;», puis vide la liste. Vos photos ne sont pas touchées.</numerusform>
            <numerusform>Crée un relevé %1, déplace %Ln fichiers de reçus dans «&#xa0;%2&#xa0;», puis vide la liste. Vos photos ne sont pas touchées.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saves a %1 ledger and moves %n receipt files into “%2”, then clears the list. Your Photos are unaffected.</source>
        <extracomment>%1 is CSV or HTML, %2 a folder.</extracomment>
        <translation>
            <numerusform>Crée un relevé %1, déplace %Ln fichier de reçu dans «&#xa0;%2&#xa0;», puis vide la liste. Vos photos ne sont pas touchées.</numerusform>
            <numerusform>Crée un relevé %1, déplace %Ln fichiers de reçus dans «&#xa0;%2&#xa0;», puis vide la liste. Vos photos ne sont pas touchées.</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear all receipts from the list?</source>
        <translation>Retirer tous les reçus de la liste&#xa0;?</translation>
    </message>
    <message>
        <source>This empties the list. Your renamed files stay in the folder and won&apos;t be re-scanned.</source>
        <translation>La liste est vidée. Vos fichiers renommés restent dans le dossier et ne seront pas numérisés à nouveau.</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Vider la liste</translation>
    </message>
    <message>
        <source>Export, archive, and clear this batch?</source>
        <translation>Exporter, archiver et vider ce lot&#xa0;?</translation>
    </message>
    <message>
        <source>Export, Archive &amp;&amp; Clear</source>
        <translation>Exporter, archiver et vider</translation>
    </message>
    <message>
        <source>Quit without saving your corrections?</source>
        <translation>Quitter sans enregistrer vos corrections&#xa0;?</translation>
    </message>
    <message>
        <source>You have changed fields in the receipt details and not saved them.</source>
        <translation>Vous avez modifié des champs dans les détails d’un reçu sans les enregistrer.</translation>
    </message>
    <message>
        <source>Quit Without Saving</source>
        <translation>Quitter sans enregistrer</translation>
    </message>
    <message numerus="yes">
        <source>Open %n files?</source>
        <translation>
            <numerusform>Ouvrir %Ln fichier&#xa0;?</numerusform>
            <numerusform>Ouvrir %Ln fichiers&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>Each opens in the program that your desktop uses for it.</source>
        <translation>Chacun s’ouvre dans le programme que votre bureau utilise pour lui.</translation>
    </message>
    <message>
        <source>Open All</source>
        <translation>Tout ouvrir</translation>
    </message>
    <message>
        <source>Read again and lose your corrections?</source>
        <translation>Relire et perdre vos corrections&#xa0;?</translation>
    </message>
    <message>
        <source>You have corrected one of these receipts by hand. What is read now takes the place of what you typed.</source>
        <translation>Vous avez corrigé l’un de ces reçus à la main. Ce qui est lu maintenant remplace ce que vous avez saisi.</translation>
    </message>
    <message numerus="yes">
        <source>You have corrected %n of these receipts by hand. What is read now takes the place of what you typed.</source>
        <translation>
            <numerusform>Vous avez corrigé %Ln de ces reçus à la main. Ce qui est lu maintenant remplace ce que vous avez saisi.</numerusform>
            <numerusform>Vous avez corrigé %Ln de ces reçus à la main. Ce qui est lu maintenant remplace ce que vous avez saisi.</numerusform>
        </translation>
    </message>
    <message>
        <source>Read Again</source>
        <translation>Relire</translation>
    </message>
</context>
<context>
    <name>ConverterError</name>
    <message>
        <source>The converter could not be started: %1</source>
        <translation>Le convertisseur n’a pas pu être démarré&#xa0;: %1</translation>
    </message>
    <message>
        <source>Unsupported file type: .%1</source>
        <extracomment>%1 is a file name extension.</extracomment>
        <translation>Type de fichier non pris en charge&#xa0;: .%1</translation>
    </message>
    <message>
        <source>Could not open PDF</source>
        <translation>Impossible d’ouvrir le PDF</translation>
    </message>
    <message>
        <source>Could not render page image</source>
        <translation>Impossible de produire l’image de la page</translation>
    </message>
    <message>
        <source>Could not encode JPEG</source>
        <translation>Impossible d’encoder le JPEG</translation>
    </message>
</context>
<context>
    <name>Exception</name>
    <message>
        <source>There is not enough memory for this file.</source>
        <translation>La mémoire ne suffit pas pour ce fichier.</translation>
    </message>
    <message>
        <source>Something unexpected happened: %1</source>
        <translation>Un événement inattendu s’est produit : %1</translation>
    </message>
    <message>
        <source>Something unexpected happened.</source>
        <translation>Un événement inattendu s’est produit.</translation>
    </message>
</context>
<context>
    <name>ExportPanel</name>
    <message>
        <source>Export Receipts</source>
        <translation>Exporter les reçus</translation>
    </message>
    <message>
        <source>“%1” already exists. Do you want to replace it?</source>
        <translation>« %1 » existe déjà. Faut-il le remplacer ?</translation>
    </message>
</context>
<context>
    <name>FieldProblem</name>
    <message>
        <source>There is no %1</source>
        <extracomment>%1 is a day that does not exist, such as &quot;31 February&quot;.</extracomment>
        <translation>Le %1 n’existe pas</translation>
    </message>
    <message>
        <source>There is no month %1</source>
        <extracomment>%1 is a number.</extracomment>
        <translation>Il n’y a pas de mois %1</translation>
    </message>
    <message>
        <source>Write the date like 2024-05-31 or %1</source>
        <extracomment>%1 is a date as the user&apos;s locale writes it.</extracomment>
        <translation>Écrivez la date comme 2024-05-31 ou %1</translation>
    </message>
    <message>
        <source>Write the time like 14:30</source>
        <translation>Écrivez l’heure comme 14:30</translation>
    </message>
    <message>
        <source>Write the amount like %1</source>
        <extracomment>%1 is a number as the user&apos;s locale writes it.</extracomment>
        <translation>Écrivez le montant comme %1</translation>
    </message>
    <message>
        <source>There is no currency “%1”</source>
        <extracomment>%1 is what was typed.</extracomment>
        <translation>Il n’y a pas de devise «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>There is no category “%1”</source>
        <extracomment>%1 is what was typed.</extracomment>
        <translation>Il n’y a pas de catégorie «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The language&apos;s code, for the names of months.</extracomment>
        <translation>fr</translation>
    </message>
    <message>
        <source>%1 %2 %3</source>
        <extracomment>Follows &quot;There is no&quot;: %1 is a day, %2 the name of a month, %3 a year.</extracomment>
        <translation>%1 %2 %3</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>Follows &quot;There is no&quot;: %1 is a day, %2 the name of a month.</extracomment>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>FileProblem</name>
    <message>
        <source>The file is a link. Put the file itself into the folder to scan it.</source>
        <translation>Le fichier est un lien. Placez le fichier lui-même dans le dossier pour le numériser.</translation>
    </message>
    <message>
        <source>This is not a regular file.</source>
        <translation>Ce n’est pas un fichier ordinaire.</translation>
    </message>
    <message>
        <source>The file was changed before it could be read. Retry to scan it as it is now.</source>
        <translation>Le fichier a été modifié avant d’avoir pu être lu. Réessayez pour le numériser tel qu’il est maintenant.</translation>
    </message>
    <message>
        <source>The file is larger than 100 MB.</source>
        <translation>Le fichier dépasse 100 Mo.</translation>
    </message>
    <message>
        <source>The folder does not respond. Is its network connected?</source>
        <translation>Le dossier ne répond pas. Son réseau est-il connecté&#xa0;?</translation>
    </message>
</context>
<context>
    <name>FolderChooser</name>
    <message>
        <source>Choose a Folder</source>
        <translation>Choisir un dossier</translation>
    </message>
</context>
<context>
    <name>GeminiError</name>
    <message>
        <source>Gemini API error: %1</source>
        <translation>Erreur de l’API Gemini&#xa0;: %1</translation>
    </message>
    <message>
        <source>Gemini API error: %1 — %2</source>
        <extracomment>%1 is the number of an HTTP status, %2 what the service has written.</extracomment>
        <translation>Erreur de l’API Gemini&#xa0;: %1 — %2</translation>
    </message>
    <message>
        <source>Failed to read file: %1</source>
        <translation>Échec de la lecture du fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>Gemini API returned error %1: %2</source>
        <translation>L’API Gemini a renvoyé l’erreur %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Gemini API returned no text content. Finish reason: %1</source>
        <extracomment>%1 is a name from the service, like MAX_TOKENS.</extracomment>
        <translation>L’API Gemini n’a renvoyé aucun texte. Raison de la fin&#xa0;: %1</translation>
    </message>
    <message>
        <source>Could not parse JSON from Gemini response. Raw response: %1</source>
        <translation>Impossible d’analyser le JSON de la réponse de Gemini. Réponse brute&#xa0;: %1</translation>
    </message>
    <message>
        <source>Gemini API returned no candidates in response</source>
        <translation>La réponse de l’API Gemini ne contient aucun candidat</translation>
    </message>
</context>
<context>
    <name>PhotoPermission</name>
    <message>
        <source>Photos Access</source>
        <translation>Accès aux photos</translation>
    </message>
    <message>
        <source>Fennick would like to add receipts to your photo library.</source>
        <translation>Fennick souhaite ajouter des reçus à votre photothèque.</translation>
    </message>
    <message>
        <source>JPEG copies of your receipts are put into the folder “%1”.</source>
        <translation>Des copies JPEG de vos reçus sont placées dans le dossier «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Pas maintenant</translation>
    </message>
    <message>
        <source>Don’t Allow</source>
        <translation>Ne pas autoriser</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Autoriser</translation>
    </message>
</context>
<context>
    <name>PhotosError</name>
    <message>
        <source>Photos access was not granted. Enable it in System Settings ▸ Privacy &amp; Security ▸ Photos.</source>
        <translation>L’accès aux photos n’a pas été accordé. Autorisez-le dans Paramètres système ▸ Confidentialité et sécurité ▸ Photos.</translation>
    </message>
    <message>
        <source>Failed to add image to Photos: %1</source>
        <translation>Échec de l’ajout de l’image à Photos&#xa0;: %1</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>The system has not said why an image could not be added.</extracomment>
        <translation>inconnu</translation>
    </message>
</context>
<context>
    <name>ReceiptQuery</name>
    <message>
        <source>failed</source>
        <extracomment>Typed to find receipts whose scan has failed.</extracomment>
        <translation>échec</translation>
    </message>
    <message>
        <source>no photo</source>
        <extracomment>Typed to find receipts that were not added to the photo library.</extracomment>
        <translation>sans photo</translation>
    </message>
    <message>
        <source>duplicate</source>
        <extracomment>Typed to find receipts that may be in the list twice.</extracomment>
        <translation>doublon</translation>
    </message>
</context>
<context>
    <name>Report</name>
    <message>
        <source>No. %1</source>
        <translation>N° %1</translation>
    </message>
    <message>
        <source>Without a currency</source>
        <translation>Sans devise</translation>
    </message>
    <message>
        <source>The document is protected by a password.</source>
        <translation>Le document est protégé par un mot de passe.</translation>
    </message>
    <message>
        <source>The file is damaged or no receipt.</source>
        <translation>Le fichier est endommagé ou n’est pas un reçu.</translation>
    </message>
    <message>
        <source>The document has no pages.</source>
        <translation>Le document n’a pas de pages.</translation>
    </message>
    <message>
        <source>The document takes too much memory or has too many pages.</source>
        <translation>Le document demande trop de mémoire ou a trop de pages.</translation>
    </message>
    <message>
        <source>The file is a link.</source>
        <translation>Le fichier est un lien.</translation>
    </message>
    <message>
        <source>The file was changed while it was read.</source>
        <translation>Le fichier a été modifié pendant sa lecture.</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The code of the language of this translation.</extracomment>
        <translation>fr</translation>
    </message>
    <message>
        <source>Receipts</source>
        <translation>Reçus</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Num.</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Lieu</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Catégorie</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Résumé</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Montant</translation>
    </message>
    <message>
        <source>Totals</source>
        <translation>Totaux</translation>
    </message>
    <message>
        <source>This receipt could not be opened.</source>
        <translation>Ce reçu n’a pas pu être ouvert.</translation>
    </message>
    <message>
        <source>The program that makes it could not be started: %1</source>
        <translation>Le programme qui le crée n’a pas pu être lancé&#xa0;: %1</translation>
    </message>
    <message>
        <source>There is a link of this name.</source>
        <translation>Il existe un lien de ce nom.</translation>
    </message>
    <message>
        <source>The file could not be written. Is the disk full?</source>
        <translation>Le fichier n’a pas pu être écrit. Le disque est-il plein&#xa0;?</translation>
    </message>
    <message>
        <source>The program that makes it ended unexpectedly.</source>
        <translation>Le programme qui le crée s’est arrêté de façon inattendue.</translation>
    </message>
    <message>
        <source>The program that makes it ended unexpectedly at this receipt: %1</source>
        <extracomment>%1 is a receipt&apos;s number, date, place and amount.</extracomment>
        <translation>Le programme qui le crée s’est arrêté de façon inattendue à ce reçu&#xa0;: %1</translation>
    </message>
    <message>
        <source>1 receipt</source>
        <translation>1 reçu</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts</source>
        <translation>
            <numerusform>%Ln reçu</numerusform>
            <numerusform>%Ln reçus</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransportError</name>
    <message>
        <source>The answer is larger than %1 MB.</source>
        <translation>La réponse dépasse %1&#xa0;Mo.</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>La requête a expiré.</translation>
    </message>
    <message>
        <source>Connection closed</source>
        <translation>Connexion fermée</translation>
    </message>
    <message>
        <source>The service has ended unexpectedly.</source>
        <translation>Le service s’est arrêté de façon inattendue.</translation>
    </message>
    <message>
        <source>The on-device engine could not be started: %1</source>
        <translation>Le moteur local n’a pas pu être démarré&#xa0;: %1</translation>
    </message>
    <message>
        <source>Decompression failed</source>
        <translation>Échec de la décompression</translation>
    </message>
</context>
<context>
    <name>UndoProblem</name>
    <message>
        <source>It is no longer in the list.</source>
        <translation>Il n’est plus dans la liste.</translation>
    </message>
    <message>
        <source>The list has this file already.</source>
        <translation>La liste contient déjà ce fichier.</translation>
    </message>
    <message>
        <source>It is being read.</source>
        <translation>Il est en cours de lecture.</translation>
    </message>
    <message>
        <source>Fields that have changed since stay as they are.</source>
        <translation>Les champs modifiés depuis restent tels quels.</translation>
    </message>
    <message>
        <source>The file is no longer there.</source>
        <translation>Le fichier n’est plus là.</translation>
    </message>
    <message>
        <source>Another file has this name; it is now “%1”.</source>
        <extracomment>%1 is a file&apos;s name.</extracomment>
        <translation>Un autre fichier porte ce nom&#xa0;; il s’appelle maintenant «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The file stays where it is: %1</source>
        <extracomment>%1 is the reason.</extracomment>
        <translation>Le fichier reste où il est&#xa0;: %1</translation>
    </message>
    <message>
        <source>The file stays where it is: it was not in the watched folder.</source>
        <translation>Le fichier reste où il est&#xa0;: il n’était pas dans le dossier surveillé.</translation>
    </message>
    <message>
        <source>It could not be moved to the trash.</source>
        <translation>Il n’a pas pu être mis à la corbeille.</translation>
    </message>
    <message>
        <source>The folder does not respond.</source>
        <translation>Le dossier ne répond pas.</translation>
    </message>
</context>
<context>
    <name>UndoReport</name>
    <message numerus="yes">
        <source>… and %n more</source>
        <translation>
            <numerusform>… et %Ln autre ligne</numerusform>
            <numerusform>… et %Ln autres lignes</numerusform>
        </translation>
    </message>
    <message>
        <source>Not everything could be done.</source>
        <translation>Tout n’a pas pu être fait.</translation>
    </message>
</context>
<context>
    <name>WatchFolderChooser</name>
    <message>
        <source>Watch This Folder</source>
        <translation>Surveiller ce dossier</translation>
    </message>
</context>
<context>
    <name>fennick::AppState</name>
    <message>
        <source>The list could not be saved: %1</source>
        <translation>La liste n’a pas pu être enregistrée : %1</translation>
    </message>
</context>
<context>
    <name>fennick::Archive</name>
    <message>
        <source>No archive location set — choose one in Settings.</source>
        <translation>Aucun dossier d’archives défini — choisissez-en un dans les paramètres.</translation>
    </message>
    <message>
        <source>Couldn&apos;t create archive folder: %1</source>
        <translation>Impossible de créer le dossier d’archives&#xa0;: %1</translation>
    </message>
    <message>
        <source>Nothing was archived: %1</source>
        <translation>Rien n’a été archivé&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>fennick::ArchiveDeed</name>
    <message>
        <source>Archive &amp; Clear</source>
        <extracomment>What the menu&apos;s Undo takes back.</extracomment>
        <translation>Archiver et vider</translation>
    </message>
</context>
<context>
    <name>fennick::ClearDeed</name>
    <message>
        <source>Clear All</source>
        <extracomment>What the menu&apos;s Undo takes back.</extracomment>
        <translation>Vider la liste</translation>
    </message>
</context>
<context>
    <name>fennick::CorrectionDeed</name>
    <message>
        <source>Correction of “%1”</source>
        <extracomment>What the menu&apos;s Undo takes back. %1 is a place or a file&apos;s name.</extracomment>
        <translation>Correction de «&#xa0;%1&#xa0;»</translation>
    </message>
</context>
<context>
    <name>fennick::DetailsWindow</name>
    <message>
        <source>Processing</source>
        <translation>En cours</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Receipt Details</source>
        <translation>Détails du reçu</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Page précédente</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Page suivante</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Raison</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>Nom du fichier</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>Photos</translation>
    </message>
    <message>
        <source>Scanned</source>
        <translation>Scanné</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Stores the corrected fields.</extracomment>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Revert</source>
        <extracomment>Takes back what was typed.</extracomment>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Select a receipt in the list.</source>
        <translation>Sélectionnez un reçu dans la liste.</translation>
    </message>
    <message>
        <source>Added to Photos</source>
        <translation>Ajouté à Photos</translation>
    </message>
    <message>
        <source>Not added to Photos</source>
        <translation>Pas ajouté à Photos</translation>
    </message>
    <message>
        <source>Opening the receipt…</source>
        <translation>Ouverture du reçu…</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <extracomment>%1 is the number of the page on the screen, %2 how many there are.</extracomment>
        <translation>Page %1 sur %2</translation>
    </message>
    <message>
        <source>Possible duplicate of</source>
        <extracomment>Follows: the name of another receipt&apos;s file, as a link.</extracomment>
        <translation>Doublon possible de</translation>
    </message>
    <message>
        <source>%1 (archived)</source>
        <extracomment>%1 is the name of a file.</extracomment>
        <translation>%1 (archivé)</translation>
    </message>
</context>
<context>
    <name>fennick::DroppedFiles</name>
    <message>
        <source>Couldn&apos;t copy %1: %2</source>
        <translation>Impossible de copier %1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>fennick::EmptyState</name>
    <message>
        <source>Choose a folder to watch, then drop in receipt PDFs or photos.
Each one is scanned, renamed, and added to Photos for Workday mobile.</source>
        <translation>Choisissez un dossier à surveiller, puis déposez-y des PDF ou des photos de reçus.
Chaque reçu est numérisé, renommé et ajouté à Photos pour Workday mobile.</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Choisir un dossier…</translation>
    </message>
    <message>
        <source>No receipts yet</source>
        <translation>Aucun reçu pour l’instant</translation>
    </message>
</context>
<context>
    <name>fennick::FennickApp</name>
    <message>
        <source>Scanning %1 of %2</source>
        <extracomment>%1 is the number of the receipt under way, %2 how many there are.</extracomment>
        <translation>Numérisation de %L1 sur %L2</translation>
    </message>
    <message>
        <source>The API key could not be stored: the secret store does not answer.</source>
        <translation>La clé API n’a pas pu être enregistrée : le coffre à secrets ne répond pas.</translation>
    </message>
</context>
<context>
    <name>fennick::FindLine</name>
    <message>
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Words, 12.50, &gt;100, eur, march 2024, failed, no photo</source>
        <extracomment>What can be typed to find receipts. Keep &quot;&gt;100&quot;; the others as they are understood in your language.</extracomment>
        <translation>Mots, 12,50, &gt;100, eur, mars 2024, échec, sans photo</translation>
    </message>
    <message>
        <source>Close Find</source>
        <translation>Fermer la recherche</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <extracomment>%1 is the number of receipts that were found, %2 that of all.</extracomment>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 of %2 receipts found</source>
        <translation>%1 reçus sur %2 trouvés</translation>
    </message>
</context>
<context>
    <name>fennick::FolderAdmission</name>
    <message>
        <source>The folder is not watched, because the list of what is already in it could not be saved: %1</source>
        <translation>Le dossier n’est pas surveillé, car la liste de son contenu actuel n’a pas pu être enregistrée&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>fennick::FormerArchives</name>
    <message>
        <source>The former archive folder could not be remembered: %1</source>
        <translation>L’ancien dossier d’archives n’a pas pu être mémorisé&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>fennick::HomeView</name>
    <message>
        <source>Photos export on</source>
        <translation>Export vers Photos activé</translation>
    </message>
    <message>
        <source>Set your Gemini API key in Settings (⌘,) to start scanning.</source>
        <extracomment>Names the shortcut of the settings on the reader&apos;s keyboard.</extracomment>
        <translation>Pour numériser, saisissez votre clé API Gemini dans les paramètres (Ctrl+,).</translation>
    </message>
    <message>
        <source>No folder selected</source>
        <translation>Aucun dossier sélectionné</translation>
    </message>
    <message>
        <source>This folder is missing. Receipts are read again when it is back.</source>
        <translation>Ce dossier est introuvable. Les reçus seront de nouveau lus à son retour.</translation>
    </message>
</context>
<context>
    <name>fennick::IgnoredFilesDialog</name>
    <message>
        <source>Restore</source>
        <extracomment>A button: lets the selected files be read again.</extracomment>
        <translation>Restaurer</translation>
    </message>
    <message>
        <source>Ignored Files</source>
        <translation>Fichiers ignorés</translation>
    </message>
    <message>
        <source>Fennick does not read these files, because they have left the list. Files that you restore are read again if they lie in the watched folder.</source>
        <translation>Fennick ne lit pas ces fichiers, car ils ont quitté la liste. Les fichiers que vous restaurez sont lus de nouveau s’ils se trouvent dans le dossier surveillé.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Ignored Since</source>
        <translation>Ignoré depuis</translation>
    </message>
</context>
<context>
    <name>fennick::KeyNotices</name>
    <message>
        <source>The service does not accept the API key. Save a valid one in the settings.</source>
        <translation>Le service n’accepte pas la clé API. Enregistrez-en une valide dans les paramètres.</translation>
    </message>
</context>
<context>
    <name>fennick::MainActions</name>
    <message>
        <source>Choose Folder</source>
        <translation>Choisir un dossier</translation>
    </message>
    <message>
        <source>Export as CSV…</source>
        <translation>Exporter en CSV…</translation>
    </message>
    <message>
        <source>Export as HTML…</source>
        <translation>Exporter en HTML…</translation>
    </message>
    <message>
        <source>Export CSV, Archive &amp;&amp; Clear</source>
        <translation>Exporter en CSV, archiver et vider</translation>
    </message>
    <message>
        <source>Export HTML, Archive &amp;&amp; Clear</source>
        <translation>Exporter en HTML, archiver et vider</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Vider la liste</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <extracomment>Shows the file in the desktop&apos;s file manager.</extracomment>
        <translation>Afficher dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Add to Photos</source>
        <translation>Ajouter à Photos</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Copy Summary</source>
        <translation>Copier le résumé</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>Fermer la fenêtre</translation>
    </message>
    <message>
        <source>Quit Fennick</source>
        <translation>Quitter Fennick</translation>
    </message>
    <message>
        <source>Details…</source>
        <translation>Détails…</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Retirer de la liste</translation>
    </message>
    <message>
        <source>Copy</source>
        <extracomment>The selected rows, as a table for the clipboard.</extracomment>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Read Again</source>
        <translation>Relire</translation>
    </message>
    <message>
        <source>Retry All Failed</source>
        <translation>Réessayer tous les échecs</translation>
    </message>
    <message>
        <source>Stop Retrying</source>
        <translation>Cesser de réessayer</translation>
    </message>
    <message>
        <source>Find…</source>
        <translation>Rechercher…</translation>
    </message>
    <message>
        <source>Export as PDF Report…</source>
        <translation>Exporter en rapport PDF…</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Open Archive Folder</source>
        <translation>Ouvrir le dossier d’archives</translation>
    </message>
    <message>
        <source>Restore Ignored Files…</source>
        <translation>Restaurer les fichiers ignorés…</translation>
    </message>
    <message>
        <source>Summary…</source>
        <translation>Synthèse…</translation>
    </message>
</context>
<context>
    <name>fennick::MainWindow</name>
    <message>
        <source>Toolbar</source>
        <translation>Barre d’outils</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Archive &amp;&amp; Clear</source>
        <translation>Archiver et vider</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Receipt</source>
        <translation>&amp;Reçu</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
</context>
<context>
    <name>fennick::MenuBarContent</name>
    <message>
        <source>Show Receipts</source>
        <translation>Afficher les reçus</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Quit Fennick</source>
        <translation>Quitter Fennick</translation>
    </message>
    <message>
        <source>No receipts yet</source>
        <translation>Aucun reçu pour l’instant</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts</source>
        <translation>
            <numerusform>%Ln reçu</numerusform>
            <numerusform>%Ln reçus</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>fennick::Notices</name>
    <message>
        <source>1 receipt scanned</source>
        <translation>1 reçu numérisé</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts scanned</source>
        <translation>
            <numerusform>%Ln reçu numérisé</numerusform>
            <numerusform>%Ln reçus numérisés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <extracomment>Receipts; follows &quot;3 receipts scanned&quot;.</extracomment>
        <translation>
            <numerusform>%Ln échec</numerusform>
            <numerusform>%Ln échecs</numerusform>
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
        <translation>1 reçu a échoué faute d’une clé API valide. Il peut être réessayé maintenant, ou plus tard avec «&#xa0;Réessayer tous les échecs&#xa0;».</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts failed for want of a valid API key. They can be retried now, also later with Retry All Failed.</source>
        <translation>
            <numerusform>%Ln reçu a échoué faute d’une clé API valide. Il peut être réessayé maintenant, ou plus tard avec «&#xa0;Réessayer tous les échecs&#xa0;».</numerusform>
            <numerusform>%Ln reçus ont échoué faute d’une clé API valide. Ils peuvent être réessayés maintenant, ou plus tard avec «&#xa0;Réessayer tous les échecs&#xa0;».</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Couldn&apos;t save %1: %2</source>
        <extracomment>%1 is a file&apos;s name, %2 the reason.</extracomment>
        <translation>Impossible d’enregistrer %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a file&apos;s name.</extracomment>
        <translation>%1 enregistré</translation>
    </message>
    <message>
        <source>The watched folder is missing: %1</source>
        <translation>Le dossier surveillé est introuvable&#xa0;: %1</translation>
    </message>
    <message>
        <source>Fennick keeps reading in the tray</source>
        <translation>Fennick continue de lire depuis la zone de notification</translation>
    </message>
    <message>
        <source>Show</source>
        <extracomment>A button: shows the file that was saved in the desktop&apos;s file manager.</extracomment>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>1 may be a duplicate</source>
        <extracomment>Receipts; follows &quot;12 receipts scanned&quot;.</extracomment>
        <translation>1 est peut-être un doublon</translation>
    </message>
    <message numerus="yes">
        <source>%n may be duplicates</source>
        <translation>
            <numerusform>%Ln est peut-être un doublon</numerusform>
            <numerusform>%Ln sont peut-être des doublons</numerusform>
        </translation>
    </message>
    <message>
        <source>1 receipt archived</source>
        <translation>1 reçu archivé</translation>
    </message>
    <message numerus="yes">
        <source>%n receipts archived</source>
        <translation>
            <numerusform>%Ln reçu archivé</numerusform>
            <numerusform>%Ln reçus archivés</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo</source>
        <extracomment>Buttons: take the archive back, and show its folder in the desktop&apos;s file manager.</extracomment>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ouvrir le dossier</translation>
    </message>
</context>
<context>
    <name>fennick::Notifier</name>
    <message>
        <source>Show Receipts</source>
        <translation>Afficher les reçus</translation>
    </message>
</context>
<context>
    <name>fennick::OnDeviceEngine</name>
    <message>
        <source>it does not answer</source>
        <extracomment>Follows &quot;The on-device engine could not be started: &quot;.</extracomment>
        <translation>il ne répond pas</translation>
    </message>
    <message>
        <source>it has ended unexpectedly</source>
        <translation>il s’est arrêté de façon inattendue</translation>
    </message>
</context>
<context>
    <name>fennick::PageView</name>
    <message>
        <source>Page</source>
        <translation>Page du reçu</translation>
    </message>
    <message>
        <source>The page could not be read</source>
        <translation>La page n’a pas pu être lue</translation>
    </message>
    <message>
        <source>Marked: %1</source>
        <extracomment>For screen readers. %1 are names of fields, such as &quot;Date, Amount&quot;.</extracomment>
        <translation>Marqués : %1</translation>
    </message>
</context>
<context>
    <name>fennick::PhotosDelivery</name>
    <message>
        <source>Photos export failed: %1</source>
        <translation>Échec de l’export vers Photos&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>fennick::ReadWithMenu</name>
    <message>
        <source>Read With</source>
        <extracomment>The submenu in which one chooses who reads the receipts.</extracomment>
        <translation>Lire avec</translation>
    </message>
    <message>
        <source>Gemini</source>
        <translation>Gemini</translation>
    </message>
    <message>
        <source>Receipts are sent to Google&apos;s Gemini service, with your API key.</source>
        <translation>Les reçus sont envoyés au service Gemini de Google, avec votre clé API.</translation>
    </message>
    <message>
        <source>This Computer</source>
        <extracomment>The receipts are read by this computer.</extracomment>
        <translation>Cet ordinateur</translation>
    </message>
    <message>
        <source>Receipts are read on this computer and sent nowhere. No key is needed.</source>
        <translation>Les reçus sont lus sur cet ordinateur et ne sont envoyés nulle part. Aucune clé n’est nécessaire.</translation>
    </message>
    <message>
        <source>Receipts are sent to %1, with your API key.</source>
        <extracomment>%1 is an address on the Internet.</extracomment>
        <translation>Les reçus sont envoyés à %1, avec votre clé API.</translation>
    </message>
</context>
<context>
    <name>fennick::ReceiptForm</name>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Montant</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Devise</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Lieu</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Catégorie</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Résumé</translation>
    </message>
    <message>
        <source>Not found on the page</source>
        <translation>Introuvable sur la page</translation>
    </message>
</context>
<context>
    <name>fennick::ReceiptsTable</name>
    <message>
        <source>Receipts</source>
        <translation>Reçus</translation>
    </message>
</context>
<context>
    <name>fennick::ReceiptsTableModel</name>
    <message>
        <source>Processing</source>
        <translation>En cours</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Added to Photos</source>
        <translation>Ajouté à Photos</translation>
    </message>
    <message>
        <source>Not added to Photos</source>
        <translation>Pas ajouté à Photos</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Montant</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Lieu</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Catégorie</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Résumé</translation>
    </message>
    <message>
        <source>Photos</source>
        <extracomment>The photo library; the column is 56 pixels wide.</extracomment>
        <translation>Photos</translation>
    </message>
</context>
<context>
    <name>fennick::Recovery</name>
    <message>
        <source>The scan was interrupted. Retry to scan this receipt again.</source>
        <translation>La numérisation a été interrompue. Réessayez pour numériser à nouveau ce reçu.</translation>
    </message>
</context>
<context>
    <name>fennick::RemovalDeed</name>
    <message>
        <source>Remove from List</source>
        <extracomment>What the menu&apos;s Undo takes back.</extracomment>
        <translation>Retirer de la liste</translation>
    </message>
</context>
<context>
    <name>fennick::ReportCommand</name>
    <message>
        <source>PDF Report</source>
        <translation>Rapport PDF</translation>
    </message>
    <message>
        <source>Name on the report:</source>
        <translation>Nom sur le rapport&#xa0;:</translation>
    </message>
    <message>
        <source>Receipt %1 of %2</source>
        <extracomment>%1 is the number of the receipt under way, %2 how many there are.</extracomment>
        <translation>Reçu %1 sur %2</translation>
    </message>
</context>
<context>
    <name>fennick::RetryDeed</name>
    <message>
        <source>Retry of “%1”</source>
        <extracomment>What the menu&apos;s Undo takes back. %1 is a place or a file&apos;s name.</extracomment>
        <translation>Nouvel essai de «&#xa0;%1&#xa0;»</translation>
    </message>
    <message numerus="yes">
        <source>Retry of %n Receipts</source>
        <translation>
            <numerusform>Nouvel essai de %Ln reçu</numerusform>
            <numerusform>Nouvel essai de %Ln reçus</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>fennick::RetryEntries</name>
    <message>
        <source>Stop Retrying</source>
        <translation>Cesser de réessayer</translation>
    </message>
    <message>
        <source>Retrying %1 of %2</source>
        <extracomment>%1 is the number of the receipt under way, %2 how many there are.</extracomment>
        <translation>Nouvel essai %1 sur %2</translation>
    </message>
</context>
<context>
    <name>fennick::RowActions</name>
    <message>
        <source>Reveal in Finder</source>
        <extracomment>Shows the file in the desktop&apos;s file manager.</extracomment>
        <translation>Afficher dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Add to Photos</source>
        <translation>Ajouter à Photos</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
</context>
<context>
    <name>fennick::ScanRun</name>
    <message>
        <source>API key not configured. Set your Gemini API key in Settings.</source>
        <translation>Clé API non configurée. Saisissez votre clé API Gemini dans les paramètres.</translation>
    </message>
</context>
<context>
    <name>fennick::SettingsFolderRow</name>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
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
        <translation>Clé enregistrée</translation>
    </message>
    <message>
        <source>API Key</source>
        <translation>Clé API</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modèle</translation>
    </message>
    <message>
        <source>Save Key</source>
        <translation>Enregistrer la clé</translation>
    </message>
    <message>
        <source>Default: gemini-2.5-flash</source>
        <translation>Par défaut&#xa0;: gemini-2.5-flash</translation>
    </message>
</context>
<context>
    <name>fennick::SettingsPhotosSection</name>
    <message>
        <source>Photos Export</source>
        <translation>Export vers Photos</translation>
    </message>
    <message>
        <source>Add receipts to Photos</source>
        <translation>Ajouter les reçus à Photos</translation>
    </message>
    <message>
        <source>Group into a dated album</source>
        <translation>Regrouper dans un album daté</translation>
    </message>
    <message>
        <source>Photos access granted</source>
        <translation>Accès aux photos accordé</translation>
    </message>
    <message>
        <source>Photos access denied — enable in System Settings ▸ Privacy</source>
        <translation>Accès aux photos refusé — à autoriser dans Paramètres système ▸ Confidentialité</translation>
    </message>
    <message>
        <source>Grant Photos Access</source>
        <translation>Autoriser l’accès aux photos</translation>
    </message>
    <message>
        <source>Converts each receipt to JPEG and adds it to Photos, so iCloud syncs it to your iPhone for Workday&apos;s mobile Scan Receipt. Each photo is named after the receipt.</source>
        <translation>Convertit chaque reçu en JPEG et l’ajoute à Photos, afin qu’iCloud le synchronise avec votre iPhone pour la numérisation de reçus de Workday mobile. Chaque photo porte le nom du reçu.</translation>
    </message>
    <message>
        <source>Everything you process in one sitting goes into an album named “Expenses: &lt;today&apos;s date&gt;”, which also syncs to your iPhone.</source>
        <translation>Tout ce que vous traitez en une fois va dans un album nommé «&#xa0;Expenses: &lt;date du jour&gt;&#xa0;», qui est également synchronisé avec votre iPhone.</translation>
    </message>
</context>
<context>
    <name>fennick::SettingsView</name>
    <message>
        <source>Fennick Settings</source>
        <translation>Paramètres de Fennick</translation>
    </message>
    <message>
        <source>Watched Folder</source>
        <translation>Dossier surveillé</translation>
    </message>
    <message>
        <source>Watched folder</source>
        <translation>Dossier surveillé</translation>
    </message>
    <message>
        <source>New PDFs and photos dropped here are scanned automatically.</source>
        <translation>Les nouveaux PDF et photos déposés ici sont numérisés automatiquement.</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Archives</translation>
    </message>
    <message>
        <source>Archive folder</source>
        <translation>Dossier d’archives</translation>
    </message>
    <message>
        <source>“Archive &amp; Clear” saves each batch — the receipt files and a CSV/HTML ledger — into a dated subfolder here.</source>
        <translation>«&#xa0;Archiver et vider&#xa0;» enregistre chaque lot — les fichiers de reçus et un relevé CSV/HTML — dans un sous-dossier daté, ici.</translation>
    </message>
    <message>
        <source>Startup &amp; Background</source>
        <translation>Démarrage et arrière-plan</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Lancer à l’ouverture de session</translation>
    </message>
    <message>
        <source>Run in menu bar (hide Dock icon)</source>
        <extracomment>An entry in the desktop&apos;s tray and none in its task bar.</extracomment>
        <translation>Exécuter dans la zone de notification (pas dans la barre des tâches)</translation>
    </message>
    <message>
        <source>On this desktop a program cannot hide its own task-bar entry, so the entry stays.</source>
        <translation>Sur ce bureau, un programme ne peut pas masquer son entrée dans la barre des tâches&#xa0;; elle reste donc visible.</translation>
    </message>
    <message>
        <source>None selected</source>
        <translation>Aucun sélectionné</translation>
    </message>
    <message>
        <source>Default: “Receipt Archive” inside the watched folder</source>
        <translation>«&#xa0;Receipt Archive&#xa0;» du dossier surveillé</translation>
    </message>
    <message>
        <source>Archive Here</source>
        <translation>Archiver ici</translation>
    </message>
</context>
<context>
    <name>fennick::SpendingModel</name>
    <message>
        <source>Month</source>
        <translation>Mois</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Total</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tous</translation>
    </message>
    <message>
        <source>No date</source>
        <extracomment>Instead of a month, for receipts whose date is not known.</extracomment>
        <translation>Sans date</translation>
    </message>
</context>
<context>
    <name>fennick::SummaryWindow</name>
    <message>
        <source>Include archives</source>
        <translation>Inclure les archives</translation>
    </message>
    <message>
        <source>No receipt has an amount yet.</source>
        <translation>Aucun reçu n’a encore de montant.</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Imprimer…</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Synthèse</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Devise</translation>
    </message>
    <message>
        <source>Spending by month and category</source>
        <translation>Dépenses par mois et par catégorie</translation>
    </message>
    <message>
        <source>Without currency</source>
        <translation>Sans devise</translation>
    </message>
</context>
<context>
    <name>fennick::UndoCommands</name>
    <message>
        <source>Undo %1</source>
        <extracomment>%1 is what was done, such as &quot;Clear All&quot;.</extracomment>
        <translation>Annuler&#xa0;: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <extracomment>%1 is what was undone, such as &quot;Clear All&quot;.</extracomment>
        <translation>Rétablir&#xa0;: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
</context>
<context>
    <name>fennick::UnreadableNames</name>
    <message>
        <source>The file&apos;s name cannot be read. Rename the file to scan it.</source>
        <translation>Le nom du fichier est illisible. Renommez-le pour le numériser.</translation>
    </message>
</context>
<context>
    <name>fennick::WatchFolderQuestion</name>
    <message>
        <source>It holds more than %1 unread PDFs and photos.</source>
        <extracomment>%1 is a number.</extracomment>
        <translation>Il contient plus de %1 PDF et photos non lus.</translation>
    </message>
    <message>
        <source>It holds no unread PDFs or photos at the moment.</source>
        <translation>Il ne contient pour l’instant ni PDF ni photo non lus.</translation>
    </message>
    <message>
        <source>It holds 1 unread PDF or photo.</source>
        <translation>Il contient 1 PDF ou photo non lu.</translation>
    </message>
    <message numerus="yes">
        <source>It holds %n unread PDFs and photos.</source>
        <translation>
            <numerusform>Il contient %Ln PDF ou photo non lu.</numerusform>
            <numerusform>Il contient %Ln PDF et photos non lus.</numerusform>
        </translation>
    </message>
    <message>
        <source>Counting its PDFs and photos takes too long.</source>
        <translation>Compter ses PDF et photos prend trop de temps.</translation>
    </message>
    <message numerus="yes">
        <source>It holds at least %n unread PDFs and photos; counting all of them takes too long.</source>
        <translation>
            <numerusform>Il contient au moins %Ln PDF ou photo non lu&#xa0;; tout compter prend trop de temps.</numerusform>
            <numerusform>Il contient au moins %Ln PDF et photos non lus&#xa0;; tout compter prend trop de temps.</numerusform>
        </translation>
    </message>
    <message>
        <source>“Read All” has this computer read and rename each of them, those in sub-folders too. They are sent nowhere.</source>
        <translation>Avec «&#xa0;Tout lire&#xa0;», cet ordinateur les lit et les renomme tous, y compris dans les sous-dossiers. Rien n’est envoyé.</translation>
    </message>
    <message>
        <source>“Read All” sends each of them to Google&apos;s Gemini service and renames it, those in sub-folders too.</source>
        <translation>«&#xa0;Tout lire&#xa0;» les envoie tous au service Gemini de Google et les renomme, y compris dans les sous-dossiers.</translation>
    </message>
    <message>
        <source>“Read All” sends each of them to %1 and renames it, those in sub-folders too.</source>
        <extracomment>%1 is an address on the Internet.</extracomment>
        <translation>«&#xa0;Tout lire&#xa0;» les envoie tous à %1 et les renomme, y compris dans les sous-dossiers.</translation>
    </message>
    <message>
        <source>Read All</source>
        <extracomment>Reads every receipt file in the folder; the texts of the question name this button.</extracomment>
        <translation>Tout lire</translation>
    </message>
    <message>
        <source>Only New Files</source>
        <extracomment>Reads only what is added to the folder later; the texts of the question name this button.</extracomment>
        <translation>Nouveaux fichiers seulement</translation>
    </message>
    <message>
        <source>Read everything in “%1”?</source>
        <translation>Lire tout le contenu de «&#xa0;%1&#xa0;»&#xa0;?</translation>
    </message>
    <message>
        <source>“Only New Files” leaves those that are there now unread for good. In either case what is added later is read.</source>
        <translation>«&#xa0;Nouveaux fichiers seulement&#xa0;» laisse ceux qui s’y trouvent non lus pour toujours. Dans les deux cas, ce qui s’ajoute plus tard est lu.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Fennick is already running in another session of yours.</source>
        <translation>Fennick est déjà ouvert dans une autre de vos sessions.</translation>
    </message>
</context>
</TS>
