# The messages of the file manager in Russian, in UTF-8: a key as the program passes it
# and its text in every line. Escapes count in both. Numbers tell which value of the key goes where.
#
# A text that counts without plural forms is worded so that it is right for any number: a noun before
# the number, or a short unit.

# Messages of the program.
msg['Open\@menu'] = r'Открыть'
msg['Open\@state'] = r'открыт'
msg['Close'] = r'Закрыть'
msg['Rename'] = r'Переименовать'
msg['Move to the trash'] = r'Переместить в корзину'
msg['State of %s: %s'] = r'Состояние файла %s: %s'
msg['Contents of %s'] = r'Содержимое папки %s'
msg['%-16s %12d bytes, changed %.1f days ago'] = r'%-16s %12d байт, изменён %.1f дня назад'
msg['%d of %d files selected'] = r'Всего файлов: %2$d, выбрано: %1$d'
msg['Copying %s to %s'] = r'Копирование %s в %s'
msg['%s: %d of %d bytes done (%.1f%%)'] = r'%s: готово %d из %d байт (%.1f\xC2\xA0%%)'
msg['Checksum of %s: %08x'] = r'Контрольная сумма %s: %08x'
msg['The copy at %x was verified in %g seconds'] = r'Копия по адресу %x проверена за %g с'
msg['Error %d: "%s" is read only'] = r'Ошибка \342\204\226\302\240%d: файл «%s» доступен только для чтения'
msg['The disk is almost full. Move files that you no longer need to another disk, or empty the trash, before you copy more.'] = r'Диск почти заполнен. Прежде чем продолжать копирование, переместите ненужные файлы на другой диск или очистите корзину.'

# Plural forms: the rule of the language, and a form for each index that it gives.
msg['\@plural'] = r'n%10==1 && n%100!=11 ? 0 : n%10>=2 && n%10<=4 && (n%100<10 || n%100>=20) ? 1 : 2'
msg['%d file in the trash\@plural0'] = r'В корзине %d файл'
msg['%d files in the trash\@plural0'] = r'В корзине %d файл'
msg['%d files in the trash\@plural1'] = r'В корзине %d файла'
msg['%d files in the trash\@plural2'] = r'В корзине %d файлов'

# Menus and headings.
msg['Cancel'] = r'Отмена'
msg['New folder'] = r'Новая папка'
msg['Show hidden files'] = r'Показывать скрытые файлы'
msg['Properties of %s'] = r'Свойства: %s'
msg['Extract %s into %s'] = r'Распаковать %s в %s'
msg['Restore %d files to %s'] = r'Восстановить в папку %2$s файлы (%1$d шт.)'
msg['Name\tSize\tChanged'] = r'Имя\tРазмер\tИзменён'

# Questions and hints.
msg['Delete %s?\nThis cannot be undone.'] = r'Удалить %s?\nЭто действие нельзя отменить.'
msg['Delete %d files from %s?'] = r'Удалить из папки %2$s файлы (%1$d шт.)?'
msg['Type a name without quotes or slashes'] = r'Введите имя без знаков \" и /'
msg['For example %c:/Pictures'] = r'Например, %c:\\Изображения'

# Permissions.
msg['Permissions of %s: %04o'] = r'Права доступа к %s: %04o'
msg['Set permissions %03o on %u files'] = r'Задать для файлов (%2$u шт.) права доступа %1$03o'
msg['Permission denied: %s belongs to %s'] = r'Доступ запрещён: владелец файла %s \xE2\x80\x94 %s'

# Search.
msg['Searching for "%s" in %s'] = r'Поиск в папке %2$s: «%1$s»'
msg['%u matches for "%s" in %d folders'] = r'По запросу «%2$s» найдено файлов: %1$u (в папках: %3$d)'
msg['No file matches "%s"'] = r'Нет файлов, соответствующих запросу «%s»'

# Progress.
msg['%d%% done, %d minutes left'] = r'Осталось %2$d мин, готово %1$d\xC2\xA0%%'
msg['Copied %d of %d files at %.2f MB/s'] = r'Скопировано файлов: %d из %d, %.2f МБ/с'
msg['Moved %d files from %s to %s'] = r'Перемещено файлов: %d (из %s в %s)'
msg['Bell: copying is finished'] = r'\aСигнал: копирование завершено'

# Sizes.
msg['%.1f GB of %.1f GB free on %s'] = r'На диске %3$s свободно %1$.1f ГБ из %2$.1f ГБ'
msg['About %.2e bytes in %ld files'] = r'Файлов: %2$ld, около %1$.2e байт'
msg['Total size: %.3E bytes'] = r'Общий размер: %.3E байт'
msg['Files in the trash: %d, the oldest deleted %d days ago'] = r'Файлов в корзине: %d, самый старый удалён %d дн. назад'

# Errors.
msg['%s already exists in %s'] = r'В папке %2$s уже есть %1$s'
msg['Cannot rename %s to %s: %s'] = r'Не удалось переименовать %s в %s: %s'
msg['Cannot open %s (error %d)'] = r'Не удалось открыть %s (ошибка %d)'
msg['Cannot read %s at byte %lu'] = r'Не удалось прочитать байт %2$lu файла %1$s'
msg['Character %c (%02x) is not allowed in %s'] = r'В имени %3$s недопустим символ %1$c (%2$02x)'
msg['Drive %c: is not ready'] = r'Диск %c: не готов'
msg['Device %04X:%04X was removed'] = r'Устройство %04X:%04X извлечено'
