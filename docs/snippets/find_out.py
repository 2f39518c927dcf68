msg['Open'] = r'Auf'
