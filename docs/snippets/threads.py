msg['Copying'] = r'Kopieren'
msg['%s: %d of %d'] = r'%s: %d von %d'
