<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en_GB">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>OK(&amp;O)</translation>
    </message>
    <message>
        <source>THIS IS PRE-RELEASE VERSION OF THE SOFTWARE.</source>
        <translation>これはソフトウェアのプレリリース版です。</translation>
    </message>
    <message>
        <source>NOT TO BE USED IN ANY CLINICAL WORK!</source>
        <translation>臨床業務には使用しないでください！</translation>
    </message>
    <message>
        <source>Cannot fetch about information</source>
        <translation>バージョン情報を取得できません</translation>
    </message>
</context>
<context>
    <name>AccessRights</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>設定を配布</translation>
    </message>
    <message>
        <source>Download settings</source>
        <translation>設定をダウンロード</translation>
    </message>
    <message>
        <source>Write local DB settings</source>
        <translation>ローカルのデータベース設定を書き込む</translation>
    </message>
    <message>
        <source>Audit Trail and Access Control</source>
        <translation>監査証跡とアクセス制御</translation>
    </message>
    <message>
        <source>Access control management</source>
        <translation>アクセス制御の管理</translation>
    </message>
    <message>
        <source>Audit trail management</source>
        <translation>監査証跡の管理</translation>
    </message>
    <message>
        <source>Person Access</source>
        <translation>個人へのアクセス</translation>
    </message>
    <message>
        <source>Read person</source>
        <translation>個人の参照</translation>
    </message>
    <message>
        <source>Modify person</source>
        <translation>個人の変更</translation>
    </message>
    <message>
        <source>Create person</source>
        <translation>個人の作成</translation>
    </message>
    <message>
        <source>Delete person</source>
        <translation>個人の削除</translation>
    </message>
    <message>
        <source>Study Access</source>
        <translation>検査へのアクセス</translation>
    </message>
    <message>
        <source>Read study</source>
        <translation>検査の参照</translation>
    </message>
    <message>
        <source>Modify study</source>
        <translation>検査の変更</translation>
    </message>
    <message>
        <source>Create study</source>
        <translation>検査の作成</translation>
    </message>
    <message>
        <source>Delete study</source>
        <translation>検査の削除</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>転送</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>インポート</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>エクスポート</translation>
    </message>
</context>
<context>
    <name>AccessRoleEditDialog</name>
    <message>
        <source>Role</source>
        <translation>役割</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Delete role</source>
        <translation>役割を削除</translation>
    </message>
    <message>
        <source>Role is in use. Deselect role from users to delete it</source>
        <translation>この役割は使用中です。削除するには、ユーザーの選択を解除してください</translation>
    </message>
</context>
<context>
    <name>AccessSettingsView</name>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Windows group based</source>
        <translation>Windowsグループ</translation>
    </message>
    <message>
        <source>Windows user based</source>
        <translation>Windowsユーザー</translation>
    </message>
    <message>
        <source>Internal users</source>
        <translation>内部ユーザー</translation>
    </message>
    <message>
        <source>Access control settings</source>
        <translation>アクセス制御の設定</translation>
    </message>
    <message>
        <source>Access control method</source>
        <translation>アクセス制御の方法</translation>
    </message>
    <message>
        <source>Offline Cache</source>
        <translation>オフラインキャッシュ</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>有効</translation>
    </message>
    <message>
        <source>Expiration time</source>
        <translation>有効期限</translation>
    </message>
    <message>
        <source>Warn user of expiration</source>
        <translation>有効期限をユーザーに警告</translation>
    </message>
    <message>
        <source>Local access control system</source>
        <translation>ローカルアクセス制御システム</translation>
    </message>
    <message>
        <source>Path to local access control database</source>
        <translation>ローカルアクセス制御データベースのパス</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Audit trail settings</source>
        <translation>監査証跡の設定</translation>
    </message>
    <message>
        <source>Offline audit trail enabled</source>
        <translation>オフライン監査証跡を有効にする</translation>
    </message>
    <message>
        <source>Audit trail offline database location</source>
        <translation>監査証跡のオフラインデータベースの場所</translation>
    </message>
    <message>
        <source>Online audit trail</source>
        <translation>オンライン監査証跡</translation>
    </message>
    <message>
        <source>Unknown. Click to read state from database.</source>
        <translation>不明です。クリックするとデータベースから状態を読み取ります。</translation>
    </message>
    <message>
        <source> Days</source>
        <translation> 日</translation>
    </message>
    <message>
        <source> Days (No expiration)</source>
        <translation> 日 (有効期限なし)</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>オフラインデータベースのフォルダーを選択</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Please enter username.</source>
        <translation>ユーザー名を入力してください。</translation>
    </message>
    <message>
        <source>Setting not accepted</source>
        <translation>設定の適用の失敗</translation>
    </message>
    <message>
        <source>Setting was not loaded nor written.</source>
        <translation>設定は読み込みも書き込みもされませんでした。</translation>
    </message>
    <message>
        <source>Setting read</source>
        <translation>設定の読み取り</translation>
    </message>
    <message>
        <source>Setting value for connected database is now shown.</source>
        <translation>接続中のデータベースの設定値を表示しています。</translation>
    </message>
    <message>
        <source>Setting accepted</source>
        <translation>設定の適用</translation>
    </message>
    <message>
        <source>Setting is now bound to the connected database. Please save or distribute to bring into effect.</source>
        <translation>設定は接続中のデータベースに関連付けられました。有効にするには、保存または配布してください。</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>AccessUserWizard</name>
    <message>
        <source>Last Name</source>
        <translation>姓</translation>
    </message>
    <message>
        <source>Middle Name</source>
        <translation>ミドルネーム</translation>
    </message>
    <message>
        <source>First Name</source>
        <translation>名</translation>
    </message>
    <message>
        <source>Organisation</source>
        <translation>組織</translation>
    </message>
    <message>
        <source>Department</source>
        <translation>部署</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>ユーザー名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>Confirm Password</source>
        <translation>パスワードの確認</translation>
    </message>
    <message>
        <source>Computer or domain</source>
        <translation>コンピューターまたはドメイン</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Remove user</source>
        <translation>ユーザーを削除</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>Discard changes?</source>
        <translation>変更を破棄しますか？</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Windows group</source>
        <translation>Windows グループ</translation>
    </message>
    <message>
        <source>Windows user</source>
        <translation>Windowsユーザー</translation>
    </message>
    <message>
        <source>Enter name manually</source>
        <translation>名前を手動で入力</translation>
    </message>
    <message>
        <source>Local computer</source>
        <translation>ローカルコンピューター</translation>
    </message>
    <message>
        <source>COMPUTER</source>
        <translation>コンピューター</translation>
    </message>
    <message>
        <source>DOMAIN</source>
        <translation>ドメイン</translation>
    </message>
    <message>
        <source>OR</source>
        <translation>または</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>グループ</translation>
    </message>
    <message>
        <source>USER</source>
        <translation>ユーザー</translation>
    </message>
    <message>
        <source>Select a Windows group</source>
        <translation>Windowsグループを選択</translation>
    </message>
    <message>
        <source>Select a Windows user</source>
        <translation>Windowsユーザーを選択</translation>
    </message>
    <message>
        <source>Internal user</source>
        <translation>内部ユーザー</translation>
    </message>
    <message>
        <source>Username and Password cannot be empty</source>
        <translation>ユーザー名とパスワードは空にできません</translation>
    </message>
    <message>
        <source>Remove group</source>
        <translation>グループを削除</translation>
    </message>
    <message>
        <source>Associations to the roles will be removed.</source>
        <translation>役割との関連付けも削除されます。</translation>
    </message>
    <message>
        <source>Password does not match with confirmation</source>
        <translation>パスワードが確認用の入力と一致しません</translation>
    </message>
    <message>
        <source>Username </source>
        <translation>ユーザー名 </translation>
    </message>
    <message>
        <source>and </source>
        <translation>と </translation>
    </message>
    <message numerus="yes">
        <source>Password </source>
        <comment>If singular, the word starts the sentence, otherwise not.</comment>
        <translation>
            <numerusform>パスワード </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>cannot be empty.</source>
        <comment>Before this can be: &quot;Username&quot; , &quot;Password&quot; or &quot;Username and password&quot;</comment>
        <translation>
            <numerusform>は空にできません。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AccesscontrolView</name>
    <message>
        <source>There are unsaved changes.
Save now?</source>
        <translation>保存されていない変更があります。
今すぐ保存しますか？</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>後で</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>アクセス制御管理</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Save failed</source>
        <translation>保存の失敗</translation>
    </message>
    <message>
        <source>Could not save </source>
        <translation>次の項目を保存できませんでした </translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>保存されていない変更</translation>
    </message>
    <message>
        <source>Please save first</source>
        <translation>先に保存してください</translation>
    </message>
    <message>
        <source>Delete failed</source>
        <translation>削除の失敗</translation>
    </message>
    <message>
        <source>Could not delete.</source>
        <translation>削除できませんでした。</translation>
    </message>
    <message>
        <source>Load failed</source>
        <translation>読み込みの失敗</translation>
    </message>
    <message>
        <source>Could not load organisational information: </source>
        <translation>組織情報を読み込めませんでした： </translation>
    </message>
    <message>
        <source>Name taken</source>
        <translation>使用済みの名前</translation>
    </message>
    <message>
        <source>Please enter unique name.</source>
        <translation>重複しない名前を入力してください。</translation>
    </message>
    <message>
        <source>Could not save.</source>
        <translation>保存できませんでした。</translation>
    </message>
    <message>
        <source>Username taken</source>
        <translation>使用済みのユーザー名</translation>
    </message>
    <message>
        <source>Please enter unique username.</source>
        <translation>重複しないユーザー名を入力してください。</translation>
    </message>
    <message>
        <source>Username empty</source>
        <translation>ユーザー名の未入力</translation>
    </message>
    <message>
        <source>Please enter username.</source>
        <translation>ユーザー名を入力してください。</translation>
    </message>
    <message>
        <source>Name empty</source>
        <translation>名前の未入力</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>ユーザー</translation>
    </message>
    <message>
        <source>Roles</source>
        <translation>役割</translation>
    </message>
    <message>
        <source>Organisations</source>
        <translation>組織</translation>
    </message>
    <message>
        <source>Departments</source>
        <translation>部署</translation>
    </message>
    <message>
        <source>Internal users</source>
        <translation>内部ユーザー</translation>
    </message>
    <message>
        <source>Windows group based</source>
        <translation>Windowsグループ</translation>
    </message>
    <message>
        <source>Windows user based</source>
        <translation>Windowsユーザー</translation>
    </message>
    <message>
        <source>View</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Type of users</source>
        <translation>ユーザーの種類</translation>
    </message>
    <message>
        <source>Add new role</source>
        <translation>役割を追加</translation>
    </message>
    <message>
        <source>Add new organisation</source>
        <translation>組織を追加</translation>
    </message>
    <message>
        <source>Add new department</source>
        <translation>部署を追加</translation>
    </message>
    <message>
        <source>Add new Windows user</source>
        <translation>Windowsユーザーを追加</translation>
    </message>
    <message>
        <source>Add new Windows group</source>
        <translation>Windowsグループを追加</translation>
    </message>
    <message>
        <source>Add new internal user</source>
        <translation>内部ユーザーを追加</translation>
    </message>
    <message>
        <source>Organisation</source>
        <translation>組織</translation>
    </message>
    <message>
        <source>Department</source>
        <translation>部署</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>住所</translation>
    </message>
    <message>
        <source>Enter address</source>
        <translation>住所を入力</translation>
    </message>
    <message>
        <source>Enter name</source>
        <translation>名前を入力</translation>
    </message>
</context>
<context>
    <name>AuditTrailChartDialog</name>
    <message>
        <source>Events by hour (UTC)</source>
        <translation>1 時間ごとのイベント (UTC)</translation>
    </message>
    <message>
        <source>Events by day (UTC)</source>
        <translation>1 日ごとのイベント (UTC)</translation>
    </message>
    <message>
        <source>Events by week (UTC)</source>
        <translation>1 週間ごとのイベント (UTC)</translation>
    </message>
    <message>
        <source>Events by month (UTC)</source>
        <translation>1 か月ごとのイベント (UTC)</translation>
    </message>
    <message>
        <source>Events by year (UTC)</source>
        <translation>1 年ごとのイベント (UTC)</translation>
    </message>
    <message>
        <source>Events by decade (UTC)</source>
        <translation>10 年ごとのイベント (UTC)</translation>
    </message>
    <message>
        <source>Events by century (UTC)</source>
        <translation>100 年ごとのイベント (UTC)</translation>
    </message>
    <message>
        <source>%1 events</source>
        <translation>イベント %1 件</translation>
    </message>
    <message>
        <source>%1 more without a time</source>
        <translation>時刻のないもの %1 件</translation>
    </message>
    <message>
        <source>Audit events over time</source>
        <translation>監査イベントの推移</translation>
    </message>
    <message>
        <source>Save as picture...</source>
        <translation>画像として保存...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Save as picture</source>
        <translation>画像として保存</translation>
    </message>
    <message>
        <source>PNG (*.png)</source>
        <translation>PNG (*.png)</translation>
    </message>
    <message>
        <source>Events by millennium (UTC)</source>
        <translation>1000 年ごとのイベント (UTC)</translation>
    </message>
</context>
<context>
    <name>AuditTrailExport</name>
    <message>
        <source>Saving the audit trail</source>
        <translation>監査証跡を保存しています</translation>
    </message>
</context>
<context>
    <name>AuditTrailQueryModel</name>
    <message>
        <source>Unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>アクセス</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>データベース</translation>
    </message>
    <message>
        <source>User</source>
        <translation>ユーザー</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>転送</translation>
    </message>
    <message>
        <source>System</source>
        <translation>システム</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>低</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>通常</translation>
    </message>
    <message>
        <source>High</source>
        <translation>高</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Human</source>
        <translation>手動</translation>
    </message>
</context>
<context>
    <name>AuditTrailQueryString</name>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>カテゴリー</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>レベル</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種別</translation>
    </message>
    <message>
        <source>Operator ID</source>
        <translation>操作者ID</translation>
    </message>
    <message>
        <source>Operator username</source>
        <translation>操作者のユーザー名</translation>
    </message>
    <message>
        <source>System</source>
        <translation>システム</translation>
    </message>
    <message>
        <source>Database key</source>
        <translation>データベースキー</translation>
    </message>
    <message>
        <source>Additional Information</source>
        <translation>追加情報</translation>
    </message>
    <message>
        <source>Target Database</source>
        <translation>対象データベース</translation>
    </message>
    <message>
        <source>Target Server</source>
        <translation>対象サーバー</translation>
    </message>
</context>
<context>
    <name>AuditTrailReader</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>%1: %2 rows</source>
        <translation>%1: %2 行</translation>
    </message>
    <message>
        <source>%1: %2 of %3 rows</source>
        <translation>%1: %3 行中 %2 行</translation>
    </message>
</context>
<context>
    <name>AuditTrailView</name>
    <message>
        <source>Filter by:</source>
        <translation>絞り込み条件：</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>監査証跡ビューアー</translation>
    </message>
    <message>
        <source>Connect to database</source>
        <translation>データベースに接続</translation>
    </message>
    <message>
        <source>Connection options</source>
        <translation>接続オプション</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>切断</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種別</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>カテゴリー</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>レベル</translation>
    </message>
    <message>
        <source>Operator ID or username</source>
        <translation>操作者IDまたはユーザー名</translation>
    </message>
    <message>
        <source>System</source>
        <translation>システム</translation>
    </message>
    <message>
        <source>Date from</source>
        <translation>日付 (開始)</translation>
    </message>
    <message>
        <source>Date to</source>
        <translation>日付 (終了)</translation>
    </message>
    <message>
        <source>Database Key</source>
        <translation>データベースキー</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>接続に失敗しました</translation>
    </message>
    <message>
        <source>Error code: %1</source>
        <translation>エラーコード：%1</translation>
    </message>
    <message>
        <source>Do you want to edit connection settings?</source>
        <translation>接続設定を編集しますか？</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>Login information for audit trail database</source>
        <translation>監査証跡データベースのログイン情報</translation>
    </message>
    <message>
        <source>Deselect</source>
        <translation>選択解除</translation>
    </message>
    <message>
        <source>Copy rows with headers</source>
        <translation>見出し付きで行をコピー</translation>
    </message>
    <message>
        <source>Copy cell</source>
        <translation>セルをコピー</translation>
    </message>
    <message>
        <source>Save as CSV...</source>
        <translation>CSV として保存...</translation>
    </message>
    <message>
        <source>Show chart...</source>
        <translation>グラフを表示...</translation>
    </message>
    <message>
        <source>Save the audit trail</source>
        <translation>監査証跡の保存</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
    <message>
        <source>Reading the audit trail</source>
        <translation>監査証跡を読み込んでいます</translation>
    </message>
    <message>
        <source>Copying the audit trail</source>
        <translation>監査証跡をコピーしています</translation>
    </message>
    <message>
        <source>These are too many rows for the clipboard. Save them as CSV instead.</source>
        <translation>クリップボードには行数が多すぎます。代わりに CSV として保存してください。</translation>
    </message>
    <message>
        <source>Reading failed</source>
        <translation>読み取りに失敗しました</translation>
    </message>
    <message>
        <source>The audit trail could not be read to its end.</source>
        <translation>監査証跡を最後まで読み取ることができませんでした。</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>CentralElement</name>
    <message>
        <source>Critical error</source>
        <translation>重大なエラー</translation>
    </message>
    <message>
        <source>The program will be closed.</source>
        <translation>プログラムを終了します。</translation>
    </message>
    <message>
        <source>Error code</source>
        <translation>エラーコード</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Application ran into a problem and cannot start.</source>
        <translation>問題が発生したため、アプリケーションを起動できません。</translation>
    </message>
    <message>
        <source>Initialisation failed</source>
        <translation>初期化に失敗しました</translation>
    </message>
    <message>
        <source>Could not start program. Error code %1</source>
        <translation>プログラムを起動できませんでした。エラーコード %1</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>ホーム</translation>
    </message>
    <message>
        <source>Settings Management</source>
        <translation>設定管理</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>アクセス制御管理</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>監査証跡ビューアー</translation>
    </message>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>CommunicationAndDataEngine</name>
    <message>
        <source>The audit trail can no longer be written.</source>
        <translation>監査証跡を書き込めなくなりました。</translation>
    </message>
</context>
<context>
    <name>ConfManagementDialog</name>
    <message>
        <source>Settings configuration management</source>
        <translation>設定構成の管理</translation>
    </message>
    <message>
        <source>Select settings configuration</source>
        <translation>設定構成を選択</translation>
    </message>
    <message>
        <source>Configuration notes</source>
        <translation>構成のメモ</translation>
    </message>
    <message>
        <source>Connected - reconnect</source>
        <translation>接続済み - 再接続</translation>
    </message>
    <message>
        <source>No connection - connect</source>
        <translation>未接続 - 接続</translation>
    </message>
    <message>
        <source>Load configuration</source>
        <translation>構成を読み込む</translation>
    </message>
    <message>
        <source>Delete configuration</source>
        <translation>構成を削除</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Show connection options</source>
        <translation>接続オプションを表示</translation>
    </message>
    <message>
        <source>Hide connection options</source>
        <translation>接続オプションを隠す</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>接続しています...</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>接続しています</translation>
    </message>
    <message>
        <source>%1 Created %2 by %3</source>
        <translation>%1 作成日時 %2 作成者 %3</translation>
    </message>
    <message>
        <source>Active in database</source>
        <translation>データベースで有効</translation>
    </message>
    <message>
        <source>Deleting settings</source>
        <translation>設定の削除</translation>
    </message>
    <message>
        <source>Deleting from database:</source>
        <translation>データベースから削除します：</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cannot delete active configuration</source>
        <translation>有効な構成は削除できません</translation>
    </message>
    <message>
        <source>Settings configuration was not deleted</source>
        <translation>設定構成は削除されませんでした</translation>
    </message>
    <message>
        <source>Could not delete settings configuration</source>
        <translation>設定構成を削除できませんでした</translation>
    </message>
    <message>
        <source>Check connection options and try again</source>
        <translation>接続オプションを確認して、もう一度お試しください</translation>
    </message>
    <message>
        <source>Deleting configuration failed</source>
        <translation>構成の削除に失敗しました</translation>
    </message>
    <message>
        <source>Deleting settings configuration from database was unsuccessful.</source>
        <translation>データベースから設定構成を削除できませんでした。</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>ConnectionOptionsDialog</name>
    <message>
        <source>Audit trail connection options</source>
        <translation>監査証跡の接続オプション</translation>
    </message>
    <message>
        <source>Select connection configuration</source>
        <translation>接続構成を選択</translation>
    </message>
    <message>
        <source>online</source>
        <translation>オンライン</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>オフライン</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>ユーザー名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>Connection settings</source>
        <translation>接続設定</translation>
    </message>
    <message>
        <source>Connection parameters</source>
        <translation>接続パラメーター</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Choose database file</source>
        <translation>データベースファイルを選択</translation>
    </message>
    <message>
        <source>DB (*.db)</source>
        <translation>DB (*.db)</translation>
    </message>
</context>
<context>
    <name>CustomPersonField</name>
    <message>
        <source>Move up</source>
        <translation>上へ移動</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>下へ移動</translation>
    </message>
    <message>
        <source>Name of the custom field</source>
        <translation>カスタムフィールドの名前</translation>
    </message>
    <message>
        <source>Visibility of the custom field</source>
        <translation>カスタムフィールドの表示</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Not visible</source>
        <translation>非表示</translation>
    </message>
    <message>
        <source>Lines of the custom field</source>
        <translation>カスタムフィールドの行数</translation>
    </message>
    <message>
        <source>One line</source>
        <translation>1行</translation>
    </message>
    <message>
        <source>Multi line</source>
        <translation>複数行</translation>
    </message>
    <message>
        <source>New field</source>
        <translation>新しい項目</translation>
    </message>
</context>
<context>
    <name>DatabaseGroupSettings</name>
    <message>
        <source>Connection mode</source>
        <translation>接続モード</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>データベース</translation>
    </message>
    <message>
        <source>SQL type</source>
        <translation>SQLの種類</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>ユーザー名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>Connection settings</source>
        <translation>接続設定</translation>
    </message>
    <message>
        <source>Connection parameters</source>
        <translation>接続パラメーター</translation>
    </message>
    <message>
        <source>Offline database Location</source>
        <translation>オフラインデータベースの場所</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Create new database</source>
        <translation>新しいデータベースを作成</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>オフラインデータベースのフォルダーを選択</translation>
    </message>
    <message>
        <source>Select offline database location</source>
        <translation>オフラインデータベースの場所を選択</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>DatabaseSettingsView</name>
    <message>
        <source>General storage settings</source>
        <translation>全般の保存設定</translation>
    </message>
    <message>
        <source>Offline database</source>
        <translation>オフラインデータベース</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Use offline database exclusively</source>
        <translation>オフラインデータベースのみを使用</translation>
    </message>
    <message>
        <source>Synchronisation</source>
        <translation>同期</translation>
    </message>
    <message>
        <source>Identification criteria</source>
        <translation>確認項目</translation>
    </message>
    <message>
        <source>Database connection settings</source>
        <translation>データベース接続設定</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>オフラインデータベースのフォルダーを選択</translation>
    </message>
</context>
<context>
    <name>DateEdit</name>
    <message>
        <source>Open calendar</source>
        <translation>カレンダーを開く</translation>
    </message>
    <message>
        <source>This field is mandatory</source>
        <translation>この項目は必須です</translation>
    </message>
    <message>
        <source>Enter valid date</source>
        <translation>有効な日付を入力してください</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>カレンダー</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
</context>
<context>
    <name>DiffView</name>
    <message>
        <source>Settings changes</source>
        <translation>設定の変更</translation>
    </message>
    <message>
        <source>Initially loaded settings:</source>
        <translation>最初に読み込んだ設定：</translation>
    </message>
    <message>
        <source>Current modified settings:</source>
        <translation>現在の変更済みの設定：</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Switch to compare to initially loaded settings</source>
        <translation>最初に読み込んだ設定との比較に切り替え</translation>
    </message>
    <message>
        <source>Previously loaded settings:</source>
        <translation>前回読み込んだ設定：</translation>
    </message>
    <message>
        <source>Switch to compare to previously loaded settings</source>
        <translation>前回読み込んだ設定との比較に切り替え</translation>
    </message>
</context>
<context>
    <name>DistributionView</name>
    <message>
        <source>Check user rights and try again.</source>
        <translation>ユーザー権限を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Check configuration ID and try again.</source>
        <translation>構成IDを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Check connection options and try again.</source>
        <translation>接続オプションを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>設定を配布</translation>
    </message>
    <message>
        <source>Options to connect settings database</source>
        <translation>設定データベースへの接続オプション</translation>
    </message>
    <message>
        <source>Insert additional configuration information</source>
        <translation>構成の追加情報を入力</translation>
    </message>
    <message>
        <source>Inform user about settings change</source>
        <translation>設定の変更をユーザーに通知</translation>
    </message>
    <message>
        <source>Add configuration release notes</source>
        <translation>構成のリリースノートを追加</translation>
    </message>
    <message>
        <source>Save to database</source>
        <translation>データベースに保存</translation>
    </message>
    <message>
        <source>Distribute to users</source>
        <translation>ユーザーに配布</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>接続しています...</translation>
    </message>
    <message>
        <source>Sending settings...</source>
        <translation>設定を送信しています...</translation>
    </message>
    <message>
        <source>Could not connect to database.</source>
        <translation>データベースに接続できませんでした。</translation>
    </message>
    <message>
        <source>Settings could not be inserted to database.</source>
        <translation>設定をデータベースに登録できませんでした。</translation>
    </message>
</context>
<context>
    <name>FieldEdit</name>
    <message>
        <source>male</source>
        <translation>男性</translation>
    </message>
    <message>
        <source>female</source>
        <translation>女性</translation>
    </message>
    <message>
        <source>undefined</source>
        <translation>未定義</translation>
    </message>
    <message>
        <source>African American</source>
        <translation>アフリカ系アメリカ人</translation>
    </message>
    <message>
        <source>Asian</source>
        <translation>アジア人</translation>
    </message>
    <message>
        <source>Caucasian</source>
        <translation>コーカソイド</translation>
    </message>
    <message>
        <source>Hispanic</source>
        <translation>ヒスパニック</translation>
    </message>
    <message>
        <source>Hong Kong Chinese</source>
        <translation>香港系中国人</translation>
    </message>
    <message>
        <source>Japanese American</source>
        <translation>日系アメリカ人</translation>
    </message>
    <message>
        <source>Polynesian</source>
        <translation>ポリネシア人</translation>
    </message>
    <message>
        <source>North Indian and Pakistani</source>
        <translation>北インド人およびパキスタン人</translation>
    </message>
    <message>
        <source>South Indian</source>
        <translation>南インド人</translation>
    </message>
    <message>
        <source>African Descent</source>
        <translation>アフリカ系</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>日本人</translation>
    </message>
    <message>
        <source>Mexican American</source>
        <translation>メキシコ系アメリカ人</translation>
    </message>
    <message>
        <source>North East Asian</source>
        <translation>北東アジア人</translation>
    </message>
    <message>
        <source>South East Asian</source>
        <translation>東南アジア人</translation>
    </message>
    <message>
        <source>Mixed / Other</source>
        <translation>混血／その他</translation>
    </message>
    <message>
        <source>No Information</source>
        <translation>情報なし</translation>
    </message>
</context>
<context>
    <name>FieldSettingsView</name>
    <message>
        <source>Person information settings</source>
        <translation>個人情報の設定</translation>
    </message>
    <message>
        <source>Standard fields</source>
        <translation>標準項目</translation>
    </message>
    <message>
        <source>Required by</source>
        <translation>必要とするアプリケーション</translation>
    </message>
    <message>
        <source>Mandatory</source>
        <translation>必須</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Not visible</source>
        <translation>非表示</translation>
    </message>
    <message>
        <source>Summary fields</source>
        <translation>概要項目</translation>
    </message>
    <message>
        <source>Order of the full name</source>
        <translation>氏名の順序</translation>
    </message>
    <message>
        <source>Custom fields</source>
        <translation>カスタム項目</translation>
    </message>
    <message>
        <source>Add new custom field</source>
        <translation>カスタム項目を追加</translation>
    </message>
</context>
<context>
    <name>FormParts</name>
    <message>
        <source>Select</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>IdentificationBoxes</name>
    <message>
        <source>Personal ID</source>
        <translation>個人ID</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>個人コード</translation>
    </message>
    <message>
        <source>Last Name</source>
        <translation>姓</translation>
    </message>
    <message>
        <source>Middle Name</source>
        <translation>ミドルネーム</translation>
    </message>
    <message>
        <source>First Name</source>
        <translation>名</translation>
    </message>
    <message>
        <source>Birthdate</source>
        <translation>生年月日</translation>
    </message>
    <message>
        <source>Gender</source>
        <translation>性別</translation>
    </message>
    <message>
        <source>Ethnic Group</source>
        <translation>民族グループ</translation>
    </message>
</context>
<context>
    <name>ImportExportSettings</name>
    <message>
        <source>Automatic Import/Export</source>
        <translation>自動インポート／エクスポート</translation>
    </message>
    <message>
        <source>HIS system file format</source>
        <translation>病院情報システムのファイル形式</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>GDT</source>
        <translation>GDT</translation>
    </message>
    <message>
        <source>GDT 3.0</source>
        <translation>GDT 3.0</translation>
    </message>
    <message>
        <source>XML</source>
        <translation>XML</translation>
    </message>
    <message>
        <source>Import mode</source>
        <translation>インポートモード</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>挿入</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Show dialogue if single matching person found</source>
        <translation>一致する人が1人だけ見つかったときにダイアログを表示</translation>
    </message>
    <message>
        <source>Person identification</source>
        <translation>本人確認</translation>
    </message>
    <message>
        <source>Identification criteria</source>
        <translation>確認項目</translation>
    </message>
    <message>
        <source>Input file</source>
        <translation>入力ファイル</translation>
    </message>
    <message>
        <source>Output file</source>
        <translation>出力ファイル</translation>
    </message>
    <message>
        <source>Export options</source>
        <translation>エクスポートオプション</translation>
    </message>
    <message>
        <source>Autoexport</source>
        <translation>自動エクスポート</translation>
    </message>
    <message>
        <source>No autoexport</source>
        <translation>自動エクスポートしない</translation>
    </message>
    <message>
        <source>No Export</source>
        <translation>エクスポートしない</translation>
    </message>
    <message>
        <source>Export Study Data</source>
        <translation>検査データをエクスポート</translation>
    </message>
    <message>
        <source>Current study</source>
        <translation>現在の検査</translation>
    </message>
    <message>
        <source>All studies</source>
        <translation>すべての検査</translation>
    </message>
    <message>
        <source>Proceed into measurement automatically</source>
        <translation>自動的に測定へ進む</translation>
    </message>
    <message>
        <source>Default locations:</source>
        <translation>既定の場所：</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>エクスポート</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>インポート</translation>
    </message>
    <message>
        <source>Default file format</source>
        <translation>既定のファイル形式</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Select default import location</source>
        <translation>既定のインポート元を選択</translation>
    </message>
    <message>
        <source>Select default export location</source>
        <translation>既定のエクスポート先を選択</translation>
    </message>
    <message>
        <source>GDT File (*.gdt);;Any file (*.*)</source>
        <translation>GDTファイル (*.gdt);;すべてのファイル (*.*)</translation>
    </message>
    <message>
        <source>XML File (*.xml);;Any file (*.*)</source>
        <translation>XMLファイル (*.xml);;すべてのファイル (*.*)</translation>
    </message>
</context>
<context>
    <name>IntroductionView</name>
    <message>
        <source>Corvane</source>
        <translation>Corvane</translation>
    </message>
    <message>
        <source>Settings Management</source>
        <translation>設定管理</translation>
    </message>
    <message>
        <source>Database Management</source>
        <translation>データベース管理</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>アクセス制御管理</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>監査証跡ビューアー</translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Username</source>
        <translation>ユーザー名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>LoginView</name>
    <message>
        <source>Corvane</source>
        <translation>Corvane</translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation>サインイン</translation>
    </message>
    <message>
        <source>Enter username</source>
        <translation>ユーザー名を入力</translation>
    </message>
    <message>
        <source>Enter password</source>
        <translation>パスワードを入力</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>ユーザー名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Select to login as</source>
        <translation>サインイン方法を選択</translation>
    </message>
    <message>
        <source>Windows administrator</source>
        <translation>Windows管理者</translation>
    </message>
    <message>
        <source>Current user</source>
        <translation>現在のユーザー</translation>
    </message>
    <message>
        <source>Other user</source>
        <translation>別のユーザー</translation>
    </message>
    <message>
        <source>Authenticated user</source>
        <translation>認証済みユーザー</translation>
    </message>
    <message>
        <source>Windows user</source>
        <translation>Windowsユーザー</translation>
    </message>
    <message>
        <source>Application internal user</source>
        <translation>アプリケーション内ユーザー</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>言語：</translation>
    </message>
    <message>
        <source>Username needed.</source>
        <translation>ユーザー名が必要です。</translation>
    </message>
    <message>
        <source>Password needed.</source>
        <translation>パスワードが必要です。</translation>
    </message>
    <message>
        <source>Signing in.</source>
        <translation>サインインしています。</translation>
    </message>
    <message>
        <source>Sign in failed!</source>
        <translation>サインインに失敗しました！</translation>
    </message>
    <message>
        <source>Czech</source>
        <translation>チェコ語</translation>
    </message>
    <message>
        <source>German (Austria)</source>
        <translation>ドイツ語 (オーストリア)</translation>
    </message>
    <message>
        <source>German</source>
        <translation>ドイツ語</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>デンマーク語</translation>
    </message>
    <message>
        <source>Greek</source>
        <translation>ギリシャ語</translation>
    </message>
    <message>
        <source>English (UK)</source>
        <translation>英語 (英国)</translation>
    </message>
    <message>
        <source>English (US)</source>
        <translation>英語 (米国)</translation>
    </message>
    <message>
        <source>Estonian</source>
        <translation>エストニア語</translation>
    </message>
    <message>
        <source>Finnish</source>
        <translation>フィンランド語</translation>
    </message>
    <message>
        <source>French</source>
        <translation>フランス語</translation>
    </message>
    <message>
        <source>Hungarian</source>
        <translation>ハンガリー語</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>イタリア語</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>日本語</translation>
    </message>
    <message>
        <source>Norwegian (Bokmål)</source>
        <translation>ノルウェー語 (ブークモール)</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>オランダ語</translation>
    </message>
    <message>
        <source>Flemish</source>
        <translation>フラマン語</translation>
    </message>
    <message>
        <source>Polish</source>
        <translation>ポーランド語</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>ポルトガル語</translation>
    </message>
    <message>
        <source>Portuguese (Brazil)</source>
        <translation>ポルトガル語 (ブラジル)</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>ロシア語</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>スペイン語</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>スウェーデン語</translation>
    </message>
    <message>
        <source>Turkish</source>
        <translation>トルコ語</translation>
    </message>
    <message>
        <source>Thai</source>
        <translation>タイ語</translation>
    </message>
    <message>
        <source>Chinese (PRC Simpl.)</source>
        <translation>中国語 (中国、簡体字)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong Simpl.)</source>
        <translation>中国語 (香港、簡体字)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan Simpl.)</source>
        <translation>中国語 (台湾、簡体字)</translation>
    </message>
    <message>
        <source>Chinese (PRC Trad.)</source>
        <translation>中国語 (中国、繁体字)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong trad.)</source>
        <translation>中国語 (香港、繁体字)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan trad.)</source>
        <translation>中国語 (台湾、繁体字)</translation>
    </message>
</context>
<context>
    <name>PersonBrowserSettingsView</name>
    <message>
        <source>Finnish</source>
        <translation>フィンランド語</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>スウェーデン語</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>日本語</translation>
    </message>
    <message>
        <source>Import/Export settings</source>
        <translation>インポート／エクスポート設定</translation>
    </message>
    <message>
        <source>Application settings</source>
        <translation>アプリケーション設定</translation>
    </message>
    <message>
        <source>Update settings when %1 starts</source>
        <translation>%1 の起動時に設定を更新</translation>
    </message>
    <message>
        <source>Persons and Studies</source>
        <translation>個人と検査</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>Date format</source>
        <translation>日付形式</translation>
    </message>
    <message>
        <source>12 hour clock</source>
        <translation>12時間制</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>単位</translation>
    </message>
    <message>
        <source>Metric (kg, cm , °C)</source>
        <translation>メートル法 (kg、cm、°C)</translation>
    </message>
    <message>
        <source>Imperial (lb, ft, in, °F)</source>
        <translation>ヤード・ポンド法 (lb、ft、in、°F)</translation>
    </message>
    <message>
        <source>Default application size</source>
        <translation>アプリケーションの既定サイズ</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>保存時のサイズ</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>全画面</translation>
    </message>
    <message>
        <source>Enable notification messages</source>
        <translation>通知メッセージを有効にする</translation>
    </message>
    <message>
        <source>Pre-fill study information</source>
        <translation>検査情報をあらかじめ入力</translation>
    </message>
    <message>
        <source>Personal ID systems</source>
        <translation>個人ID体系</translation>
    </message>
    <message>
        <source>Used systems</source>
        <translation>使用する体系</translation>
    </message>
    <message>
        <source>Default personal ID system</source>
        <translation>既定の個人ID体系</translation>
    </message>
    <message>
        <source>Ethnic groups</source>
        <translation>民族グループ</translation>
    </message>
    <message>
        <source>Shown ethnic groups</source>
        <translation>表示する民族グループ</translation>
    </message>
    <message>
        <source>Default ethnic group</source>
        <translation>既定の民族グループ</translation>
    </message>
    <message>
        <source>System locale</source>
        <translation>システムのロケール</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Czech</source>
        <translation>チェコ語</translation>
    </message>
    <message>
        <source>German (Austria)</source>
        <translation>ドイツ語 (オーストリア)</translation>
    </message>
    <message>
        <source>German</source>
        <translation>ドイツ語</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>デンマーク語</translation>
    </message>
    <message>
        <source>Greek</source>
        <translation>ギリシャ語</translation>
    </message>
    <message>
        <source>English (UK)</source>
        <translation>英語 (英国)</translation>
    </message>
    <message>
        <source>English (US)</source>
        <translation>英語 (米国)</translation>
    </message>
    <message>
        <source>Estonian</source>
        <translation>エストニア語</translation>
    </message>
    <message>
        <source>French</source>
        <translation>フランス語</translation>
    </message>
    <message>
        <source>Hungarian</source>
        <translation>ハンガリー語</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>イタリア語</translation>
    </message>
    <message>
        <source>Norwegian (Bokmål)</source>
        <translation>ノルウェー語 (ブークモール)</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>オランダ語</translation>
    </message>
    <message>
        <source>Flemish</source>
        <translation>フラマン語</translation>
    </message>
    <message>
        <source>Polish</source>
        <translation>ポーランド語</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>ポルトガル語</translation>
    </message>
    <message>
        <source>Portuguese (Brazil)</source>
        <translation>ポルトガル語 (ブラジル)</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>ロシア語</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>スペイン語</translation>
    </message>
    <message>
        <source>Turkish</source>
        <translation>トルコ語</translation>
    </message>
    <message>
        <source>Thai</source>
        <translation>タイ語</translation>
    </message>
    <message>
        <source>Chinese (PRC Simpl.)</source>
        <translation>中国語 (中国、簡体字)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong Simpl.)</source>
        <translation>中国語 (香港、簡体字)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan Simpl.)</source>
        <translation>中国語 (台湾、簡体字)</translation>
    </message>
    <message>
        <source>Chinese (PRC Trad.)</source>
        <translation>中国語 (中国、繁体字)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong trad.)</source>
        <translation>中国語 (香港、繁体字)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan trad.)</source>
        <translation>中国語 (台湾、繁体字)</translation>
    </message>
    <message>
        <source>Unknown</source>
        <comment>personal ID system</comment>
        <translation>不明</translation>
    </message>
    <message>
        <source>Finnish</source>
        <comment>personal ID system</comment>
        <translation>フィンランド</translation>
    </message>
    <message>
        <source>Swedish</source>
        <comment>personal ID system</comment>
        <translation>スウェーデン</translation>
    </message>
    <message>
        <source>No Information</source>
        <comment>ethnic group</comment>
        <translation>情報なし</translation>
    </message>
    <message>
        <source>African American</source>
        <comment>ethnic group</comment>
        <translation>アフリカ系アメリカ人</translation>
    </message>
    <message>
        <source>Asian</source>
        <comment>ethnic group</comment>
        <translation>アジア人</translation>
    </message>
    <message>
        <source>Caucasian</source>
        <comment>ethnic group</comment>
        <translation>コーカソイド</translation>
    </message>
    <message>
        <source>Hispanic</source>
        <comment>ethnic group</comment>
        <translation>ヒスパニック</translation>
    </message>
    <message>
        <source>Hong Kong Chinese</source>
        <comment>ethnic group</comment>
        <translation>香港系中国人</translation>
    </message>
    <message>
        <source>Japanese American</source>
        <comment>ethnic group</comment>
        <translation>日系アメリカ人</translation>
    </message>
    <message>
        <source>Polynesian</source>
        <comment>ethnic group</comment>
        <translation>ポリネシア人</translation>
    </message>
    <message>
        <source>North Indian and Pakistani</source>
        <comment>ethnic group</comment>
        <translation>北インド人およびパキスタン人</translation>
    </message>
    <message>
        <source>South Indian</source>
        <comment>ethnic group</comment>
        <translation>南インド人</translation>
    </message>
    <message>
        <source>African Descent</source>
        <comment>ethnic group</comment>
        <translation>アフリカ系</translation>
    </message>
    <message>
        <source>Japanese</source>
        <comment>ethnic group</comment>
        <translation>日本人</translation>
    </message>
    <message>
        <source>Mexican American</source>
        <comment>ethnic group</comment>
        <translation>メキシコ系アメリカ人</translation>
    </message>
    <message>
        <source>North East Asian</source>
        <comment>ethnic group</comment>
        <translation>北東アジア人</translation>
    </message>
    <message>
        <source>South East Asian</source>
        <comment>ethnic group</comment>
        <translation>東南アジア人</translation>
    </message>
    <message>
        <source>Mixed / Other</source>
        <comment>ethnic group</comment>
        <translation>混血／その他</translation>
    </message>
</context>
<context>
    <name>ProductTexts</name>
    <message>
        <source>© 2026 Halvorn. All rights reserved.</source>
        <translation>© 2026 Halvorn. 無断複写・転載を禁じます。</translation>
    </message>
    <message>
        <source>Using this program means accepting the terms in the file Disclaimer.txt, which is delivered with it.</source>
        <translation>本プログラムの使用により、付属のファイル Disclaimer.txt の条件に同意したものとみなされます。</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Bergl_Z</source>
        <translation>Bergl_Z</translation>
    </message>
    <message>
        <source>Berglund for adults, Zapletal for children</source>
        <translation>成人：Berglund、小児：Zapletal</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>ブラジル</translation>
    </message>
    <message>
        <source>Brazilian reference values</source>
        <translation>ブラジル基準値</translation>
    </message>
    <message>
        <source>China</source>
        <translation>中国</translation>
    </message>
    <message>
        <source>Chinese reference values</source>
        <translation>中国基準値</translation>
    </message>
    <message>
        <source>Cra_Knu</source>
        <translation>Cra_Knu</translation>
    </message>
    <message>
        <source>Crapo for adults, Knudson for children</source>
        <translation>成人：Crapo、小児：Knudson</translation>
    </message>
    <message>
        <source>ECSC_IGiChP</source>
        <translation>ECSC_IGiChP</translation>
    </message>
    <message>
        <source>Polish reference values: ECSC for adults, IGiChP for children</source>
        <translation>ポーランド基準値 成人：ECSC、小児：IGiChP</translation>
    </message>
    <message>
        <source>ECSC_P</source>
        <translation>ECSC_P</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Polgar for children</source>
        <translation>成人：欧州石炭鉄鋼共同体、小児：Polgar</translation>
    </message>
    <message>
        <source>ECSC_PZ</source>
        <translation>ECSC_PZ</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Polgar and partly Zapletal for children</source>
        <translation>成人：欧州石炭鉄鋼共同体、小児：Polgarおよび一部Zapletal</translation>
    </message>
    <message>
        <source>ECSC_Qua</source>
        <translation>ECSC_Qua</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for children</source>
        <translation>成人：欧州石炭鉄鋼共同体、小児：Quanjer</translation>
    </message>
    <message>
        <source>ECSC_Qua_AT</source>
        <translation>ECSC_Qua_AT</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for Austrian children</source>
        <translation>成人：欧州石炭鉄鋼共同体、オーストリアの小児：Quanjer</translation>
    </message>
    <message>
        <source>ECSC_Qua_ES</source>
        <translation>ECSC_Qua_ES</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for Spanish children</source>
        <translation>成人：欧州石炭鉄鋼共同体、スペインの小児：Quanjer</translation>
    </message>
    <message>
        <source>ECSC_Qua_GB</source>
        <translation>ECSC_Qua_GB</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for English children</source>
        <translation>成人：欧州石炭鉄鋼共同体、英国の小児：Quanjer</translation>
    </message>
    <message>
        <source>ECSC_Z</source>
        <translation>ECSC_Z</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Zapletal for children</source>
        <translation>成人：欧州石炭鉄鋼共同体、小児：Zapletal</translation>
    </message>
    <message>
        <source>Forche2</source>
        <translation>Forche2</translation>
    </message>
    <message>
        <source>Austrian reference values: Forche for adults and children</source>
        <translation>オーストリア基準値 成人・小児：Forche</translation>
    </message>
    <message>
        <source>Garcia-Rio_Roca_SEP</source>
        <translation>Garcia-Rio_Roca_SEP</translation>
    </message>
    <message>
        <source>Spanish reference values: Garcia-Rio for elderly, Roca for adults, SEPAR for children</source>
        <translation>スペイン基準値 高齢者：Garcia-Rio、成人：Roca、小児：SEPAR</translation>
    </message>
    <message>
        <source>GLI2012</source>
        <translation>GLI2012</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for adults and children</source>
        <translation>Global Lung Function Initiative 基準値 成人・小児</translation>
    </message>
    <message>
        <source>GLI2012_African_American</source>
        <translation>GLI2012_African_American</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for African American adults and children</source>
        <translation>Global Lung Function Initiative 基準値 アフリカ系アメリカ人の成人・小児</translation>
    </message>
    <message>
        <source>GLI2012_Caucasian</source>
        <translation>GLI2012_Caucasian</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for Caucasian adults and children</source>
        <translation>Global Lung Function Initiative 基準値 コーカソイドの成人・小児</translation>
    </message>
    <message>
        <source>GLI2012_North_East_Asians</source>
        <translation>GLI2012_North_East_Asians</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for North East Asians adults and children</source>
        <translation>Global Lung Function Initiative 基準値 北東アジア人の成人・小児</translation>
    </message>
    <message>
        <source>GLI2012_South_East_Asians</source>
        <translation>GLI2012_South_East_Asians</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for South East Asians adults and children</source>
        <translation>Global Lung Function Initiative 基準値 東南アジア人の成人・小児</translation>
    </message>
    <message>
        <source>GLI2012_Other/mixed</source>
        <translation>GLI2012_Other/mixed</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for Other/mixed adults and children</source>
        <translation>Global Lung Function Initiative 基準値 その他／混血の成人・小児</translation>
    </message>
    <message>
        <source>Gulsvik_Z</source>
        <translation>Gulsvik_Z</translation>
    </message>
    <message>
        <source>Norwegian reference values: Gulsvik for adults, Zapletal for children</source>
        <translation>ノルウェー基準値 成人：Gulsvik、小児：Zapletal</translation>
    </message>
    <message>
        <source>Hedenstrom_Sol</source>
        <translation>Hedenstrom_Sol</translation>
    </message>
    <message>
        <source>Swedish reference values: Hedenstrom for adults, Solymar for children</source>
        <translation>スウェーデン基準値 成人：Hedenstrom、小児：Solymar</translation>
    </message>
    <message>
        <source>Hedenstrom_Z</source>
        <translation>Hedenstrom_Z</translation>
    </message>
    <message>
        <source> Swedish reference values: Hedenstrom for adults, Zapletal for children</source>
        <translation> スウェーデン基準値 成人：Hedenstrom、小児：Zapletal</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>日本</translation>
    </message>
    <message>
        <source> Japanese reference values</source>
        <translation> 日本基準値</translation>
    </message>
    <message>
        <source>Jindal</source>
        <translation>Jindal</translation>
    </message>
    <message>
        <source>Indian reference values: Jindal for adults and adolescents</source>
        <translation>インド基準値 成人・青少年：Jindal</translation>
    </message>
    <message>
        <source>Kainu_Koillinen</source>
        <translation>Kainu_Koillinen</translation>
    </message>
    <message>
        <source>Finnish reference values: Kainu for adults and Koillinen for children</source>
        <translation>フィンランド基準値 成人：Kainu、小児：Koillinen</translation>
    </message>
    <message>
        <source>Klement</source>
        <translation>Klement</translation>
    </message>
    <message>
        <source> Russian reference values: Klement for adults and children</source>
        <translation> ロシア基準値 成人・小児：Klement</translation>
    </message>
    <message>
        <source>Knudson</source>
        <translation>Knudson</translation>
    </message>
    <message>
        <source> Knudson for adults and children</source>
        <translation> 成人・小児：Knudson</translation>
    </message>
    <message>
        <source>Langhammer_Z</source>
        <translation>Langhammer_Z</translation>
    </message>
    <message>
        <source>Norwegian reference values: Langhammer for adults, Zapletal for children</source>
        <translation>ノルウェー基準値 成人：Langhammer、小児：Zapletal</translation>
    </message>
    <message>
        <source>NHANES III_W</source>
        <translation>NHANES III_W</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds. Wang for children under 8 years</source>
        <translation>8～80歳：NHANES III (Hankinson)。8歳未満の小児：Wang</translation>
    </message>
    <message>
        <source>NHANES III_W_African_American</source>
        <translation>NHANES III_W_African_American</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years African American ethnics</source>
        <translation>8～80歳：NHANES III (Hankinson)、8歳未満の小児：Wang、アフリカ系アメリカ人</translation>
    </message>
    <message>
        <source>NHANES III_W_Mexican_American</source>
        <translation>NHANES III_W_Mexican_American</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years Mexican American ethnics</source>
        <translation>8～80歳：NHANES III (Hankinson)、8歳未満の小児：Wang、メキシコ系アメリカ人</translation>
    </message>
    <message>
        <source>NHANES III_W_Other</source>
        <translation>NHANES III_W_Other</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years other ethnics</source>
        <translation>8～80歳：NHANES III (Hankinson)、8歳未満の小児：Wang、その他の民族</translation>
    </message>
    <message>
        <source>SEPAR</source>
        <translation>SEPAR</translation>
    </message>
    <message>
        <source>Spanish reference values: SEPAR for adults and children</source>
        <translation>スペイン基準値 成人・小児：SEPAR</translation>
    </message>
    <message>
        <source>Udwadia</source>
        <translation>Udwadia</translation>
    </message>
    <message>
        <source>Indian reference values: Udwadia for adults and adolescents</source>
        <translation>インド基準値 成人・青少年：Udwadia</translation>
    </message>
    <message>
        <source>Vijayan</source>
        <translation>Vijayan</translation>
    </message>
    <message>
        <source>Indian reference values: Vijayan for adults and adolescents</source>
        <translation>インド基準値 成人・青少年：Vijayan</translation>
    </message>
    <message>
        <source>Viljanen_Kiv</source>
        <translation>Viljanen_Kiv</translation>
    </message>
    <message>
        <source>Estonian reference values: Viljanen for adults, Kivastik for children</source>
        <translation>エストニア基準値 成人：Viljanen、小児：Kivastik</translation>
    </message>
    <message>
        <source>Viljanen_Koi</source>
        <translation>Viljanen_Koi</translation>
    </message>
    <message>
        <source>Finnish reference values: Viljanen for adults, Koillinen for children</source>
        <translation>フィンランド基準値 成人：Viljanen、小児：Koillinen</translation>
    </message>
</context>
<context>
    <name>RemoveButton</name>
    <message>
        <source>Remove custom field</source>
        <translation>カスタム項目を削除</translation>
    </message>
    <message>
        <source>Removing custom field</source>
        <translation>カスタム項目の削除</translation>
    </message>
    <message>
        <source>Removing custom field will delete it permanently</source>
        <translation>カスタム項目は完全に削除されます</translation>
    </message>
    <message>
        <source>Removing custom field will delete it permanently.</source>
        <translation>カスタム項目は完全に削除されます。</translation>
    </message>
    <message>
        <source>Continue?</source>
        <translation>続行しますか？</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Saving failed</source>
        <translation>保存に失敗しました</translation>
    </message>
    <message>
        <source>The file %1 could not be saved.</source>
        <translation>ファイル %1 を保存できませんでした。</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>SearchSettingsView</name>
    <message>
        <source>First name</source>
        <translation>名</translation>
    </message>
    <message>
        <source>Middle name</source>
        <translation>ミドルネーム</translation>
    </message>
    <message>
        <source>Last name</source>
        <translation>姓</translation>
    </message>
    <message>
        <source>Personal ID</source>
        <translation>個人ID</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>個人コード</translation>
    </message>
    <message>
        <source>Minimum search characters</source>
        <translation>検索に必要な最小文字数</translation>
    </message>
    <message>
        <source>Search results in single row</source>
        <translation>検索結果を1行で表示</translation>
    </message>
    <message>
        <source>Person search result</source>
        <translation>個人検索の結果</translation>
    </message>
    <message>
        <source>Search parameters</source>
        <translation>検索条件</translation>
    </message>
    <message>
        <source>Custom fields to search:</source>
        <translation>検索対象のカスタム項目：</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Select settings source from menu below</source>
        <translation>下のメニューから設定の取得元を選択してください</translation>
    </message>
    <message>
        <source>Manage local application</source>
        <translation>ローカルアプリケーションの管理</translation>
    </message>
    <message>
        <source>Enable autosaving to local application</source>
        <translation>ローカルアプリケーションへの自動保存を有効にする</translation>
    </message>
    <message>
        <source>Save settings to local application</source>
        <translation>設定をローカルアプリケーションに保存</translation>
    </message>
    <message>
        <source>Load settings from local application</source>
        <translation>ローカルアプリケーションから設定を読み込む</translation>
    </message>
    <message>
        <source>Manage online configurations</source>
        <translation>オンライン構成の管理</translation>
    </message>
    <message>
        <source>See changes made in settings</source>
        <translation>設定の変更内容を表示</translation>
    </message>
    <message>
        <source>Manage settings configurations</source>
        <translation>設定構成の管理</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>設定を配布</translation>
    </message>
    <message>
        <source>Transfer settings</source>
        <translation>設定の転送</translation>
    </message>
    <message>
        <source>Import settings</source>
        <translation>設定をインポート</translation>
    </message>
    <message>
        <source>Export settings</source>
        <translation>設定をエクスポート</translation>
    </message>
    <message>
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message>
        <source>Lacking privileges to save database settings.</source>
        <translation>データベース設定を保存する権限がありません。</translation>
    </message>
    <message>
        <source>Lacking privileges to save local audit trail settings.</source>
        <translation>ローカルの監査証跡設定を保存する権限がありません。</translation>
    </message>
    <message>
        <source>Lacking privileges to save local access control settings.</source>
        <translation>ローカルのアクセス制御設定を保存する権限がありません。</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Autosaving settings to local application settings file. This message is only shown once.</source>
        <translation>設定をローカルアプリケーションの設定ファイルに自動保存します。このメッセージは一度だけ表示されます。</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Cannot write to local settings file.</source>
        <translation>ローカルの設定ファイルに書き込めません。</translation>
    </message>
    <message>
        <source>Not all settings were saved.</source>
        <translation>一部の設定が保存されませんでした。</translation>
    </message>
    <message>
        <source>Saving succeeded.</source>
        <translation>保存しました。</translation>
    </message>
    <message>
        <source>Not all settings were loaded.</source>
        <translation>一部の設定が読み込まれませんでした。</translation>
    </message>
    <message>
        <source>Local settings</source>
        <translation>ローカル設定</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>データベース</translation>
    </message>
    <message>
        <source>Loading settings failed</source>
        <translation>設定の読み込みに失敗しました</translation>
    </message>
    <message>
        <source>Loading settings configuration from database was unsuccessful.
Previous settings restored.</source>
        <translation>データベースから設定構成を読み込めませんでした。
以前の設定に戻しました。</translation>
    </message>
    <message>
        <source>INI (*.ini)</source>
        <translation>INI (*.ini)</translation>
    </message>
    <message>
        <source>Export to a file</source>
        <translation>ファイルにエクスポート</translation>
    </message>
    <message>
        <source>File existed and could not be overwritten!</source>
        <translation>既存のファイルを上書きできませんでした！</translation>
    </message>
    <message>
        <source> File copying failed!</source>
        <translation> ファイルのコピーに失敗しました！</translation>
    </message>
    <message>
        <source>Import from a file</source>
        <translation>ファイルからインポート</translation>
    </message>
    <message>
        <source>Imported settings</source>
        <translation>インポートした設定</translation>
    </message>
    <message>
        <source>File %1 not found! Please select existing file to import!</source>
        <translation>ファイル %1 が見つかりません。インポートする既存のファイルを選択してください！</translation>
    </message>
    <message>
        <source>Importing settings from %1 did not succeed. Please try again.</source>
        <translation>%1 からの設定のインポートに失敗しました。もう一度お試しください。</translation>
    </message>
    <message>
        <source>Access control</source>
        <translation>アクセス制御</translation>
    </message>
    <message>
        <source>and</source>
        <translation>および</translation>
    </message>
    <message>
        <source>Audit trail</source>
        <translation>監査証跡</translation>
    </message>
    <message>
        <source>Notice.</source>
        <translation>お知らせ。</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Person fields</source>
        <translation>個人項目</translation>
    </message>
    <message>
        <source>Study fields</source>
        <translation>検査項目</translation>
    </message>
</context>
<context>
    <name>SqlCipherDriver</name>
    <message>
        <source>Error opening database</source>
        <translation>データベースを開くときにエラーが発生しました</translation>
    </message>
    <message>
        <source>Error closing database</source>
        <translation>データベースを閉じるときにエラーが発生しました</translation>
    </message>
    <message>
        <source>Unable to begin transaction</source>
        <translation>トランザクションを開始できません</translation>
    </message>
    <message>
        <source>Unable to commit transaction</source>
        <translation>トランザクションをコミットできません</translation>
    </message>
    <message>
        <source>Unable to rollback transaction</source>
        <translation>トランザクションをロールバックできません</translation>
    </message>
</context>
<context>
    <name>SqlCipherResult</name>
    <message>
        <source>Unable to execute statement</source>
        <translation>ステートメントを実行できません</translation>
    </message>
    <message>
        <source>Unable to execute multiple statements at a time</source>
        <translation>複数のステートメントを同時に実行できません</translation>
    </message>
    <message>
        <source>Unable to fetch row</source>
        <translation>行を取得できません</translation>
    </message>
    <message>
        <source>No query</source>
        <translation>クエリがありません</translation>
    </message>
    <message>
        <source>Parameter count mismatch</source>
        <translation>パラメーターの数が一致しません</translation>
    </message>
    <message>
        <source>Unable to bind parameters</source>
        <translation>パラメーターをバインドできません</translation>
    </message>
    <message>
        <source>The connection is closed</source>
        <translation>接続は閉じられています</translation>
    </message>
</context>
<context>
    <name>StandardFields</name>
    <message>
        <source>Full Name</source>
        <translation>氏名</translation>
    </message>
    <message>
        <source>First Name</source>
        <translation>名</translation>
    </message>
    <message>
        <source>Middle Name</source>
        <translation>ミドルネーム</translation>
    </message>
    <message>
        <source>Last Name</source>
        <translation>姓</translation>
    </message>
    <message>
        <source>Personal ID</source>
        <translation>個人ID</translation>
    </message>
    <message>
        <source>Birthdate</source>
        <translation>生年月日</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>個人コード</translation>
    </message>
    <message>
        <source>Gender</source>
        <translation>性別</translation>
    </message>
    <message>
        <source>Ethnic group</source>
        <translation>民族グループ</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(なし)</translation>
    </message>
</context>
<context>
    <name>StudySettingsView</name>
    <message>
        <source>Study information settings for</source>
        <translation>検査情報の設定</translation>
    </message>
    <message>
        <source>More study specific settings available when study plugins are installed</source>
        <translation>検査プラグインをインストールすると、検査固有の設定がさらに利用できます</translation>
    </message>
    <message>
        <source>Hidden spirometry reference sets</source>
        <translation>非表示にするスパイロメトリー基準値</translation>
    </message>
    <message>
        <source>Default spirometry reference set</source>
        <translation>既定のスパイロメトリー基準値</translation>
    </message>
    <message>
        <source>Spirometry</source>
        <translation>スパイロメトリー</translation>
    </message>
    <message>
        <source>Select to hide</source>
        <translation>非表示にする項目を選択</translation>
    </message>
    <message>
        <source>Application name</source>
        <translation>アプリケーション名</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Study list fields</source>
        <translation>検査一覧の項目</translation>
    </message>
    <message>
        <source>Hidden study field editors</source>
        <translation>非表示にする検査入力項目</translation>
    </message>
</context>
<context>
    <name>SupportConnectionHandler</name>
    <message>
        <source>Connected to authentication database</source>
        <translation>認証データベースに接続しました</translation>
    </message>
    <message>
        <source>No connection to authentication database</source>
        <translation>認証データベースに接続していません</translation>
    </message>
    <message>
        <source>Connection options</source>
        <translation>接続オプション</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>再接続</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>接続に失敗しました</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>TableHelper</name>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>よろしいですか？</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>ViewStacker</name>
    <message>
        <source>Settings Management</source>
        <translation>設定管理</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>アクセス制御管理</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>監査証跡ビューアー</translation>
    </message>
</context>
<context>
    <name>ZephanSplash</name>
    <message>
        <source>THIS IS PRE-RELEASE VERSION OF THE SOFTWARE. NOT TO BE USED IN ANY CLINICAL WORK!</source>
        <translation>これはソフトウェアのプレリリース版です。臨床業務には使用しないでください！</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
</context>
</TS>
