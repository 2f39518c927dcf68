# The messages of the file manager in German, in UTF-8: a key as the program passes it
# and its text in every line. Escapes count in both. Numbers tell which value of the key goes where.
#
# Keep to the characters of ISO-8859-1.

# Messages of the program.
msg['Open\@menu'] = r'\303\226ffnen'
msg['Open\@state'] = r'geöffnet'
msg['Close'] = r'Schließen'
msg['Rename'] = r'Umbenennen'
msg['Move to the trash'] = r'In den Papierkorb verschieben'
msg['State of %s: %s'] = r'Zustand von %s: %s'
msg['Contents of %s'] = r'Inhalt von %s'
msg['%-16s %12d bytes, changed %.1f days ago'] = r'%-16s %12d Bytes, vor %.1f Tagen geändert'
msg['%d of %d files selected'] = r'Von %2$d Dateien sind %1$d ausgew\xC3\xA4hlt'
msg['Copying %s to %s'] = r'%s wird nach %s kopiert'
msg['%s: %d of %d bytes done (%.1f%%)'] = r'%s: %d von %d Bytes fertig (%.1f\xC2\xA0%%)'
msg['Checksum of %s: %08x'] = r'Prüfsumme von %s: %08x'
msg['The copy at %x was verified in %g seconds'] = r'Die Kopie bei %x wurde in %g Sekunden geprüft'
msg['Error %d: "%s" is read only'] = r'Fehler %d: \"%s\" ist schreibgeschützt'
msg['The disk is almost full. Move files that you no longer need to another disk, or empty the trash, before you copy more.'] = r'Der Datenträger ist fast voll. Verschieben Sie nicht mehr benötigte Dateien auf einen anderen Datenträger oder leeren Sie den Papierkorb, bevor Sie weitere Dateien kopieren.'

# Plural forms: the rule of the language, and a form for each index that it gives.
msg['\@plural'] = r'n != 1'
msg['%d file in the trash\@plural0'] = r'%d Datei im Papierkorb'
msg['%d files in the trash\@plural1'] = r'%d Dateien im Papierkorb'

# Menus and headings.
msg['Cancel'] = r'Abbrechen'
msg['New folder'] = r'Neuer Ordner'
msg['Show hidden files'] = r'Versteckte Dateien anzeigen'
msg['Properties of %s'] = r'Eigenschaften von %s'
msg['Extract %s into %s'] = r'%s nach %s entpacken'
msg['Restore %d files to %s'] = r'%d Dateien in %s wiederherstellen'
msg['Name\tSize\tChanged'] = r'Name\tGröße\tGeändert'

# Questions and hints.
msg['Delete %s?\nThis cannot be undone.'] = r'%s löschen?\nDies kann nicht rückgängig gemacht werden.'
msg['Delete %d files from %s?'] = r'%d Dateien aus %s löschen?'
msg['Type a name without quotes or slashes'] = r'Geben Sie einen Namen ohne \" und / ein'
msg['For example %c:/Pictures'] = r'Zum Beispiel %c:\\Bilder'

# Permissions.
msg['Permissions of %s: %04o'] = r'Zugriffsrechte von %s: %04o'
msg['Set permissions %03o on %u files'] = r'Für %2$u Dateien die Zugriffsrechte %1$03o setzen'
msg['Permission denied: %s belongs to %s'] = r'Zugriff verweigert: %s gehört %s'

# Search.
msg['Searching for "%s" in %s'] = r'In %2$s wird nach \"%1$s\" gesucht'
msg['%u matches for "%s" in %d folders'] = r'Suche nach \"%2$s\": %1$u Treffer in %3$d Ordnern'
msg['No file matches "%s"'] = r'Keine Datei entspricht \"%s\"'

# Progress.
msg['%d%% done, %d minutes left'] = r'Noch %2$d Minuten, %1$d\xC2\xA0%% erledigt'
msg['Copied %d of %d files at %.2f MB/s'] = r'Von %2$d Dateien %1$d kopiert, %3$.2f MB/s'
msg['Moved %d files from %s to %s'] = r'%d Dateien von %s nach %s verschoben'
msg['Bell: copying is finished'] = r'\aSignalton: Der Kopiervorgang ist beendet'

# Sizes.
msg['%.1f GB of %.1f GB free on %s'] = r'Auf %3$s sind %1$.1f GB von %2$.1f GB frei'
msg['About %.2e bytes in %ld files'] = r'Etwa %.2e Bytes in %ld Dateien'
msg['Total size: %.3E bytes'] = r'Gesamtgröße: %.3E Bytes'
msg['Files in the trash: %d, the oldest deleted %d days ago'] = r'Dateien im Papierkorb: %d, die älteste vor %d Tagen gelöscht'

# Errors.
msg['%s already exists in %s'] = r'In %2$s ist %1$s bereits vorhanden'
msg['Cannot rename %s to %s: %s'] = r'%s kann nicht in %s umbenannt werden: %s'
msg['Cannot open %s (error %d)'] = r'%s kann nicht geöffnet werden (Fehler %d)'
msg['Cannot read %s at byte %lu'] = r'Lesefehler bei Byte %2$lu in %1$s'
msg['Character %c (%02x) is not allowed in %s'] = r'In %3$s ist das Zeichen %1$c (%2$02x) nicht erlaubt'
msg['Drive %c: is not ready'] = r'Laufwerk %c: ist nicht bereit'
msg['Device %04X:%04X was removed'] = r'Gerät %04X:%04X wurde entfernt'
