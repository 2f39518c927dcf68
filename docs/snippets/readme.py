msg['%d of %d files copied to %s'] = r'Nach %3$s: %1$d von %2$d Dateien kopiert'
msg['Open\@menu'] = r'\303\226ffnen'
msg['Open\@state'] = r'ge\303\266ffnet'
