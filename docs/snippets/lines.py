# A line without the marker is passed over.
msg['plain'] = r'text'
  anything['indented'] = r'read as well'
# msg['switched off'] = r'read all the same'
msg['twice'] = r'first'
msg['twice'] = r'later'
msg['blank behind'] = r'text' 
msg['note behind'] = r'text'  # note
msg['it's'] = r'it's'
msg["double"] = r"not read"
msg['spaced']  = r'not read'
msg['empty'] = r''
msg['no form'] = r'Cyrillic De: \xD0\x94'
msg['broken'] = r'\xE9'
msg['last'] = r'no newline'