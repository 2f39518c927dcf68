msg['%d files in %s'] = r'Ordner %2$s, %1$d Dateien'
msg['%d of all files in %s'] = r'Dateien aus %2$s'
