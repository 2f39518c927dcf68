msg['%d files copied to %s'] = r'%d Dateien nach %s kopiert'
msg['Done'] = r'Fertig'
