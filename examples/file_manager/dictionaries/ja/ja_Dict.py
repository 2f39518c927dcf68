# The messages of the file manager in Japanese, in UTF-8: a key as the program passes it
# and its text in every line. Escapes count in both. Numbers tell which value of the key goes where.
#
# Keep to the characters of Shift-JIS, without the backslash and the tilde. Widths count bytes, so
# they are for values in ASCII. A long text folds at its spaces only: leave some between phrases.

# Messages of the program.
msg['Open\@menu'] = r'開く'
msg['Open\@state'] = r'開いています'
msg['Close'] = r'閉じる'
msg['Rename'] = r'名前を変更'
msg['Move to the trash'] = r'ごみ箱に移動'
msg['State of %s: %s'] = r'%s の状態: %s'
msg['Contents of %s'] = r'%s の内容'
msg['%-16s %12d bytes, changed %.1f days ago'] = r'%-16s %12d バイト、%.1f 日前に変更'
msg['%d of %d files selected'] = r'%2$d 個のファイルのうち %1$d 個を選択中'
msg['Copying %s to %s'] = r'%s を %s にコピーしています'
msg['%s: %d of %d bytes done (%.1f%%)'] = r'%1$s: %3$d バイト中 %2$d バイト完了 (%4$.1f%%)'
msg['Checksum of %s: %08x'] = r'チェックサム: %2$08x (%1$s)'
msg['The copy at %x was verified in %g seconds'] = r'コピーの検証は %2$g 秒で終わりました (アドレス %1$x)'
msg['Error %d: "%s" is read only'] = r'エラー %d: \343\200\214%s\343\200\215は読み取り専用です'
msg['The disk is almost full. Move files that you no longer need to another disk, or empty the trash, before you copy more.'] = r'ディスクの空き容量が残りわずかです。 不要なファイルを別のディスクに移すか、 ごみ箱を空にしてから、 コピーを続けてください。'

# Plural forms: the rule of the language, and a form for each index that it gives.
msg['\@plural'] = r'0'
msg['%d file in the trash\@plural0'] = r'ごみ箱に %d 個のファイル'
msg['%d files in the trash\@plural0'] = r'ごみ箱に %d 個のファイル'

# Menus and headings.
msg['Cancel'] = r'キャンセル'
msg['New folder'] = r'新しいフォルダー'
msg['Show hidden files'] = r'隠しファイルを表示'
msg['Properties of %s'] = r'%s のプロパティ'
msg['Extract %s into %s'] = r'%s を %s に展開'
msg['Restore %d files to %s'] = r'%2$s に %1$d 個のファイルを復元'
msg['Name\tSize\tChanged'] = r'名前\tサイズ\t更新日時'

# Questions and hints.
msg['Delete %s?\nThis cannot be undone.'] = r'%s を削除しますか？\nこの操作は元に戻せません。'
msg['Delete %d files from %s?'] = r'%2$s から %1$d 個のファイルを削除しますか？'
msg['Type a name without quotes or slashes'] = r'\" と / を含まない名前を入力してください'
msg['For example %c:/Pictures'] = r'例: %c:/画像'

# Permissions.
msg['Permissions of %s: %04o'] = r'%s のアクセス権: %04o'
msg['Set permissions %03o on %u files'] = r'%2$u 個のファイルのアクセス権を %1$03o に設定'
msg['Permission denied: %s belongs to %s'] = r'アクセスできません: %s の所有者は %s です'

# Search.
msg['Searching for "%s" in %s'] = r'%2$s で\xE3\x80\x8C%1$s\xE3\x80\x8Dを検索しています'
msg['%u matches for "%s" in %d folders'] = r'%3$d 個のフォルダーで「%2$s」に一致する項目が %1$u 件見つかりました'
msg['No file matches "%s"'] = r'「%s」に一致するファイルはありません'

# Progress.
msg['%d%% done, %d minutes left'] = r'残り %2$d 分 (%1$d%% 完了)'
msg['Copied %d of %d files at %.2f MB/s'] = r'%2$d 個中 %1$d 個のファイルをコピー済み (%3$.2f MB/秒)'
msg['Moved %d files from %s to %s'] = r'%2$s から %3$s に %1$d 個のファイルを移動しました'
msg['Bell: copying is finished'] = r'\a通知音: コピーが終わりました'

# Sizes.
msg['%.1f GB of %.1f GB free on %s'] = r'%3$s の空き容量: %2$.1f GB 中 %1$.1f GB'
msg['About %.2e bytes in %ld files'] = r'%2$ld 個のファイルで約 %1$.2e バイト'
msg['Total size: %.3E bytes'] = r'合計サイズ: %.3E バイト'
msg['Files in the trash: %d, the oldest deleted %d days ago'] = r'ごみ箱のファイル: %d 個 (最も古いものは %d 日前に削除)'

# Errors.
msg['%s already exists in %s'] = r'%2$s には %1$s がすでにあります'
msg['Cannot rename %s to %s: %s'] = r'%s の名前を %s に変更できません: %s'
msg['Cannot open %s (error %d)'] = r'エラー %2$d: %1$s を開けません'
msg['Cannot read %s at byte %lu'] = r'%s の %lu バイト目を読み取れません'
msg['Character %c (%02x) is not allowed in %s'] = r'%3$s には文字 %1$c (%2$02x) を使えません'
msg['Drive %c: is not ready'] = r'ドライブ %c: の準備ができていません'
msg['Device %04X:%04X was removed'] = r'デバイス %04X:%04X が取り外されました'
