msg['Open'] = r'Offen'
msg['Open\@menu'] = r'Aufmachen'
msg['Open\@state'] = r'Aufgemacht'
msg['Open %s\@title'] = r'%s anzeigen'
